// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/cli/Program.h"
#include "tests/support/Text.h"

#include <QDir>
#include <QFile>
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
    EXPECT_EQ(folder.run(commandLine("album --out site --template modern a.jpg")).status, 0)
        << "an album of ours";
    for (const char* words :
         {"", "--out x --thumbnail 40", "--out x --thumbnail 29x40", "--out x --page-style plain",
          "--out x --page-color red", "--out x --per-row 9"})
        EXPECT_EQ(folder.run(commandLine("album a.jpg") + commandLine(words)).status, 2) << words;
    EXPECT_EQ(folder.files(), "a.jpg art.jpg b.jpg c.jpg own.mbf");
}

TEST(AlbumCommand, ReplacesNoFileThatIsNotOfAnAlbumUnlessTold) {
    for (const char* how : {"--template exact", "--template modern", "--only-changed"}) {
        const PictureFolder folder;
        const auto status = [&](const char* words = "") {
            return folder
                .run(commandLine("album --out . a.jpg b.jpg") + commandLine(how) + commandLine(words))
                .status;
        };
        QDir(folder.path()).mkdir(QStringLiteral("MyImages_My Album"));
        const QString own = folder.path("MyImages_My Album/b.jpg"), index = folder.path("index.htm");
        QFile::copy(folder.path("b.jpg"), own);
        EXPECT_EQ(folder.run(commandLine("album --out .") + commandLine(how) + QStringList(own)).status, 1)
            << how;
        EXPECT_EQ(readWholeFile(own), readWholeFile(folder.path("b.jpg"))) << "a picture of the album itself";
        writeFileSafely(own, "mine");
        EXPECT_EQ(status(), 1) << how;
        writeFileSafely(index, "<html>mine</html>");
        EXPECT_EQ(status(), 1) << how;
        EXPECT_EQ(folder.files(), "a.jpg b.jpg c.jpg index.htm") << "nothing is written";
        EXPECT_TRUE(readWholeFile(own) == "mine" && readWholeFile(index) == "<html>mine</html>") << how;
        EXPECT_EQ(status("--overwrite"), 0) << how;
        EXPECT_NE(readWholeFile(own), "mine") << how;
        EXPECT_EQ(status(), 0) << how << ": now it is an album";
        QFile::remove(index);
        EXPECT_EQ(status(), 0) << how << ": one that was interrupted";
    }
}

TEST(AlbumCommand, OnlyChangedKeepsWhatNoRunRecorded) {
    const PictureFolder folder;
    const QString small = folder.path("s/MyImages_My Album/small/a.jpg");
    QDir().mkpath(QFileInfo(small).path());
    writeFileSafely(small, "mine");
    EXPECT_EQ(folder.run("album --template modern --out s a.jpg").status, 1)
        << "where a smaller size of it may go";
    EXPECT_EQ(readWholeFile(small), "mine");
    EXPECT_EQ(folder.run("album --only-changed --out x a.jpg").status, 0);
    writeFileSafely(folder.path("x/My Album_b.html"), "mine");
    EXPECT_EQ(folder.run("album --only-changed --out x a.jpg b.jpg").status, 1);
    EXPECT_EQ(readWholeFile(folder.path("x/My Album_b.html")), "mine");
    EXPECT_EQ(folder.run("album --only-changed --out x a.jpg c.jpg").status, 0);
    EXPECT_EQ(folder.run("album --out x a.jpg b.jpg").status, 0) << "files of an earlier album are replaced";
    EXPECT_EQ(folder.run("album --only-changed --out x a.jpg b.jpg").status, 0) << "that run recorded them";
    writeFileSafely(folder.path("x/index.htm"), "mine");
    EXPECT_EQ(folder.run("album --only-changed --out x a.jpg b.jpg").status, 1);
    EXPECT_EQ(readWholeFile(folder.path("x/index.htm")), "mine") << "where an index of ours was";
}
