// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

TEST(AlbumCommand, WritesAnAlbumOfItsOptionsAndReportsEachRow) {
    const PictureFolder folder;
    makePicture(folder.path("art.jpg"), 24, 16, text("Jo"));
    writeFileSafely(folder.path("own.mbf"), "\"EXIF - Artist\"\r\n");
    const ProgramRun run = folder.run(commandLine(
        "album --json --out new/site --title Trip --per-row 2 --thumbnail 40x30 --no-names "
        "--link-color FF8000 --cell-style color --cell-color 0000ff --page-image grey --font-size 1 "
        "--font DejaVu --metadata own.mbf a.jpg missing.jpg art.jpg"));
    EXPECT_EQ(run.status, 1) << run.messages.constData();
    ASSERT_EQ(run.objects().size(), 3);
    EXPECT_EQ(run.objects()[0].value(text("row")).toInt(), 0);
    EXPECT_EQ(run.objects()[2].value(text("target")), folder.path("new/site/MyImages_Trip/art.jpg"));
    const QByteArray index = readWholeFile(folder.path("new/site/index.htm"));
    for (const char* part : {"background='MyImages_Trip\\grey.gif' link=#FF8000", " bgcolor=#0000FF > ",
                             "face= 'DejaVu' size=1 color=#000000><b></b><br>24 x 16", "</td>\r\n</tr>"})
        EXPECT_TRUE(contains(index, part));
    EXPECT_TRUE(contains(readWholeFile(folder.path("new/site/Trip_art.html")), "<b>Artist</b> - Jo"));
    EXPECT_EQ(folder.loaded("new/site/MyImages_Trip/a_thumb.jpg").Height(), 30);
    EXPECT_EQ(folder.run(commandLine("album --out site a.jpg art.jpg")).status, 0);
    for (const char* words :
         {"", "--out x --thumbnail 40", "--out x --thumbnail 29x40", "--out x --page-style plain",
          "--out x --page-color red", "--out x --per-row 9"})
        EXPECT_EQ(folder.run(commandLine("album a.jpg") + commandLine(words)).status, 2) << words;
    EXPECT_EQ(folder.files(), "a.jpg art.jpg b.jpg c.jpg own.mbf");
}
