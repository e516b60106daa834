// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Examples.h"

#include <QtGlobal>

namespace tarsel::cli {

namespace {

constexpr Example allExamples[] = {
    {"batch",
     QT_TRANSLATE_NOOP(
         "ManualPage",
         "Replay a task list on all pictures of a folder, and name them by the day of the picture:"),
     "--tasks web.tbf --out web --name hybrid --prefix '[EXIF Date]' summer/*.jpg"},
    {"batch",
     QT_TRANSLATE_NOOP("ManualPage", "Make files of at most 200 KB, and see before what would be written:"),
     "--max-size 200K --shrink --out mail --dry-run *.jpg"},
    {"album",
     QT_TRANSLATE_NOOP(
         "ManualPage",
         "Make an album of one page for phones and large screens, and write only what has changed:"),
     "--out public --title 'Summer' --template modern --only-changed summer.ibd"},
    {"saver",
     QT_TRANSLATE_NOOP("ManualPage", "Make a screen saver that changes its picture every five seconds:"),
     "--out summer.scr --interval 5 summer.ibd"},
    {"slide", QT_TRANSLATE_NOOP("ManualPage", "Make a slide show for a computer with Windows:"),
     "--out summer.exe --system windows summer.ibd"},
    {"greeting", QT_TRANSLATE_NOOP("ManualPage", "Let a text rain over a picture:"),
     "--out birthday.exe --style raining-text --text 'All the best!' beach.jpg"},
    {"joined list", QT_TRANSLATE_NOOP("ManualPage", "See which pictures a slide show has:"), "summer.exe"},
    {"joined extract", QT_TRANSLATE_NOOP("ManualPage", "Copy them out:"), "--out pictures summer.exe"},
    {"apply",
     QT_TRANSLATE_NOOP("ManualPage", "Try a task list on one picture, and look at the result without loss:"),
     "--tasks web.tbf photo.jpg try.png"},
    {"encode",
     QT_TRANSLATE_NOOP("ManualPage", "Make a JPEG file of at most 200 KB, in the best quality that fits:"),
     "--max-size 200K photo.tif mail.jpg"},
    {"encode", QT_TRANSLATE_NOOP("ManualPage", "Pack a scanned page as a fax machine does:"),
     "--colors monochrome-bw --compression group4 page.png page.tif"},
    {"print", QT_TRANSLATE_NOOP("ManualPage", "Make a contact sheet with the names of the pictures:"),
     "--pdf contact.pdf --per-page 20 --captions name *.jpg"},
    {"capture",
     QT_TRANSLATE_NOOP("ManualPage", "Take a picture of the screen in three seconds, with the pointer:"),
     "--out screen.png --delay 3 --pointer"},
    {"scan", QT_TRANSLATE_NOOP("ManualPage", "Scan all pages of a document feeder into one document:"),
     "--source 'Automatic Document Feeder' --multi --out letter.pdf"},
    {"info", QT_TRANSLATE_NOOP("ManualPage", "Show sizes, pages, EXIF and IPTC for a script:"),
     "--json *.jpg"},
    {"tasks", QT_TRANSLATE_NOOP("ManualPage", "Read a task list in words before it is run:"), "web.tbf"},
    {"basket", QT_TRANSLATE_NOOP("ManualPage", "Make a basket of all JPEG files, and list it:"),
     "save summer.ibf *.jpg"},
    {"metadata get", QT_TRANSLATE_NOOP("ManualPage", "Show what a picture says of itself:"), "beach.jpg"},
    {"metadata set", QT_TRANSLATE_NOOP("ManualPage", "Give a picture a caption and its photographer:"),
     "--iptc 'Caption=The beach, early' --exif 'Artist=Ann Example' beach.jpg"},
    {"metadata delete",
     QT_TRANSLATE_NOOP("ManualPage", "Delete two attributes from all pictures of a folder:"),
     "--exif Artist --exif Copyright summer"},
    {"metadata clear", QT_TRANSLATE_NOOP("ManualPage", "Try what would be deleted:"),
     "--exif --iptc --dry-run beach.jpg"},
    {"metadata export", QT_TRANSLATE_NOOP("ManualPage", "Write side files beside each picture:"),
     "--beside both summer"},
    {"metadata import", QT_TRANSLATE_NOOP("ManualPage", "Put the IPTC fields of a side file into pictures:"),
     "--iptc captions.ffo beach.jpg"},
};

} // namespace

std::span<const Example> examples() {
    return allExamples;
}

} // namespace tarsel::cli
