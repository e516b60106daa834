// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainActions.h"

namespace tarsel {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("MainActions", text)

constexpr ActionRow rows[] = {
    {"cmdBrowseSettings", TEXT("Settings"), TEXT("Change the settings and see the shortcuts"), "settings",
     "Ctrl+,"},
    {"cmdCapture", TEXT("Capture"), TEXT("Take a picture of the screen"), "capture", "Ctrl+Shift+C"},
    {"cmdTwainAcquire", TEXT("Acquire"), TEXT("Take pictures from a scanner"), "scan", "Ctrl+Shift+T"},
    {"cmdHelp", TEXT("&Help"), TEXT("The manual, and facts about this program"), "help"},
    {"mnuManual", TEXT("&Manual"), TEXT("Open the manual at the page of what has the focus"), "help", "F1"},
    {"mnuAbout", TEXT("&About"), TEXT("Version, libraries and licences"), "iDetailIcon", "Shift+F1"},
    // the panes
    {"showNextPane", TEXT("Next pane"), "", "next", "F6"},
    {"showPreviousPane", TEXT("Previous pane"), "", "previous", "Shift+F6"},
    {"showFolders", TEXT("Go to the folders"), "", "folder", "Alt+1"},
    {"showTasks", TEXT("Go to the task basket"), "", "task", "Alt+2"},
    {"showFiles", TEXT("Go to the files"), "", "pictures", "Alt+3"},
    {"showBasket", TEXT("Go to the basket"), "", "basket", "Alt+4"},
    {"showPicture", TEXT("Go to the picture"), "", "preview", "Alt+5"},
    {"showExif", TEXT("Go to EXIF"), "", "metadata", "Alt+6"},
    {"showIptc", TEXT("Go to IPTC"), "", "metadata", "Alt+7"},
    // places
    {"cmdHomeFolder", TEXT("Home"), TEXT("Show the home folder"), "home", "Alt+Home"},
    {"cmdPicturesFolder", TEXT("Pictures"), TEXT("Show the folder of your pictures"), "pictures",
     "Ctrl+Shift+P"},
    {"cmdDesktopFolder", TEXT("Desktop"), TEXT("Show the desktop's folder"), "desktop", "Ctrl+Shift+D"},
    {"cmdParentFolder", TEXT("Parent folder"), TEXT("Show the folder above"), "parent", "Alt+Up"},
    {"cmdTypePath", TEXT("Type a path"), "", "folder", "Ctrl+L"},
    // the folder
    {"cmdAddToQueue", TEXT("&Add to basket"), TEXT("Add the selected files to the basket"), "add", "Return"},
    {"cmdThumbnailFolder", TEXT("Show thumbnails"), TEXT("Show thumbnails"), "thumbnails", "Ctrl+1",
     "folderForm"},
    {"cmdDetailFolder", TEXT("Show details"), TEXT("Show details"), "details", "Ctrl+2", "folderForm"},
    {"cmdRefreshFolder", TEXT("Refresh"), TEXT("List the folder again"), "refresh", "F5"},
    // the basket
    {"cmdPagesNew", TEXT("&New basket"), TEXT("New basket"), "new", "Ctrl+N"},
    {"cmdPagesOpen", TEXT("&Open basket"), TEXT("Open basket"), "open", "Ctrl+O"},
    {"cmdPagesSave", TEXT("&Save basket"), TEXT("Save basket"), "save", "Ctrl+S"},
    {"cmdPagesDelete", TEXT("&Remove from basket"), TEXT("Remove from basket"), "remove", "Del"},
    {"cmdBatchPrint", TEXT("Print &basket"), TEXT("Print the pictures of the basket"), "print", "Ctrl+Alt+P"},
    {"cmdSaveAs", TEXT("Sa&ve as"), TEXT("Save the pictures of the basket"), "saveAs"},
    {"mnuSaveAsJpeg", TEXT("&JPEG files (batch mode)"), "", "saveAs", "Ctrl+J"},
    {"mnuSaveAsAlbum", TEXT("&Web Album"), "", "pictures", "Ctrl+Shift+W"},
    {"mnuSaveAsSaver", TEXT("Screensaver/Sli&de"), "", "pictures", "Ctrl+Alt+W"},
    {"mnuSaveRowAs", TEXT("Save &As"), "", "saveAs"},
    {"mnuAddDescription", TEXT("Add &description"), "", "describe", "Ctrl+D"},
    {"mnuRenameTitle", TEXT("Re&name title"), "", "rename", "F2"},
    {"mnuMoveUp", TEXT("Move u&p"), "", "moveUp", "Ctrl+Shift+Up"},
    {"mnuMoveDown", TEXT("Mo&ve down"), "", "moveDown", "Ctrl+Shift+Down"},
    {"mnuUndo", TEXT("&Undo"), "", "undo", "Ctrl+Z"},
    {"mnuRedo", TEXT("Red&o"), "", "redo", "Ctrl+Shift+Z"},
    // the metadata
    {"cmdEXIFBar_0", TEXT("Edit EXIF tag"), TEXT("Edit the selected EXIF tag"), "edit", "Ctrl+Alt+E"},
    {"cmdEXIFBar_1", TEXT("New EXIF tag"), TEXT("Create a new editable EXIF tag"), "new", "Ctrl+Alt+N"},
    {"cmdEXIFBar_2", TEXT("Remove EXIF tag"), TEXT("Remove the selected EXIF tag from the image"), "remove",
     "Ctrl+Alt+D"},
    {"cmdEXIFBar_3", TEXT("Clear EXIF"),
     TEXT("Empty all EXIF tags from the image ( all EXIF tags will be discarded)"), "clear", "Ctrl+Alt+A"},
    {"cmdEXIFBar_4", TEXT("Open EXIF file"), TEXT("Open an existing EXIF file (.XIFF)"), "open",
     "Ctrl+Alt+O"},
    {"cmdEXIFBar_5", TEXT("Save EXIF file"),
     TEXT("Save the current EXIF tags from the image to file (.XIFF)"), "save", "Ctrl+Alt+S"},
    {"cmdIPTCBar_0", TEXT("Edit IPTC tag"), TEXT("Edit the selected IPTC tag"), "edit", "Ctrl+Alt+Shift+E"},
    {"cmdIPTCBar_1", TEXT("Open IPTC file"), TEXT("Open an existing IPTC file (.FFO)"), "open",
     "Ctrl+Alt+Shift+O"},
    {"cmdIPTCBar_2", TEXT("Save IPTC file"), TEXT("Save the current IPTC tags from the image to file (.FFO)"),
     "save", "Ctrl+Alt+Shift+S"},
    {"cmdIPTCBar_3", TEXT("Delete IPTC tag"), TEXT("Delete the selected IPTC tag from the image"), "remove",
     "Ctrl+Alt+Shift+D"},
    {"cmdIPTCBar_4", TEXT("Clear IPTC"),
     TEXT("Empty all IPTC tags from the image (all tags will be discarded)"), "clear", "Ctrl+Alt+Shift+A"},
    // the task basket
    {"cmdEditBar_0", TEXT("New task basket"), TEXT("Create a new task basket"), "new", "Ctrl+Shift+N"},
    {"cmdEditBar_1", TEXT("Open task basket"), TEXT("Open a task basket"), "open", "Ctrl+Shift+O"},
    {"cmdEditBar_2", TEXT("Save task basket"), TEXT("Save the task basket"), "save", "Ctrl+Shift+S"},
    {"cmdEditBar_3", TEXT("Remove task"), TEXT("Remove the selected task"), "remove", "Ctrl+Shift+Del"},
    // the preview
    {"cmdPreviewPrevious", TEXT("Previous image"), TEXT("Previous image"), "previous", "Alt+Left"},
    {"cmdPreviewNext", TEXT("Next image"), TEXT("Next image"), "next", "Alt+Right"},
    {"CmdPreviewEdit", TEXT("  Edit"), TEXT("Change the picture with tasks, or finish that"), "edit", "F4"},
    {"mnuPreviewEdit", TEXT("&Edit/Enhance image"), "", "edit"},
    {"cmdPreviewView", TEXT("Bes&t Fit"), TEXT("Show the complete picture or each of its pixels"), "zoom"},
    {"mnuPreviewBestFit", TEXT("Best &Fit"), "", "zoom", "Ctrl+9", "previewFit"},
    {"mnuPreviewActualSize", TEXT("Ac&tual Size"), "", "actualSize", "Ctrl+0", "previewFit"},
    {"cmdPreviewType", TEXT("&Original "), TEXT("Show the picture as it is or with the tasks applied"),
     "iDetailIcon"},
    {"mnuPreviewOriginal", TEXT("&Original"), "", "iDetailIcon", "", "previewType"},
    {"mnuPreviewOptimized", TEXT("O&ptimized"), "", "optimized", "", "previewType"},
    {"cmdPreviewSave", TEXT("Save ima&ge"), TEXT("Save the picture on show"), "save"},
    {"cmdPreviewPrint", TEXT("Print ima&ge"), TEXT("Print the picture on show"), "print", "Ctrl+P"},
    // editing
    {"cmdApply", TEXT("Preview"), TEXT("Show what the task does to the picture"), "preview", "F9"},
    {"cmdOK", TEXT("Finish"), TEXT("Confirm the task, or finish editing"), "confirm", "Ctrl+Return"},
    {"cmdReset", TEXT("Reset"), TEXT("Take back the preview and the options"), "undo", "Shift+F9"},
    {"cmdOriginalImage", TEXT("Origin&al image"), TEXT("Remove all tasks"), "iDetailIcon"},
    {"cmdBefore", TEXT("Be&fore"),
     TEXT("Show the picture without the present task; hold B for a moment of it"), "before"},
    {"cmdCompare", TEXT("Compare"), TEXT("Show before and after on the two sides of a line"), "compare",
     "F8"},
    {"mnuPreviewSaveImage", TEXT("&Image document"), "", "save", "Ctrl+E"},
    {"mnuPreviewSaveInteractive", TEXT("Interactive save &utility"), "", "compare", "Ctrl+Shift+E"},
    {"mnuPreviewSaveGreeting", TEXT("&Greeting image"), "", "pictures", "Ctrl+G"},
};

#undef TEXT

} // namespace

std::span<const ActionRow> mainActions() {
    return rows;
}

} // namespace tarsel
