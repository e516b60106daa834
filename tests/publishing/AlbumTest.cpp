// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Progress.h"
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "embedded/IptcFields.h"
#include "publishing/AlbumText.h"
#include "publishing/MetadataLines.h"
#include "tests/publishing/AlbumReference.h"
#include "tests/publishing/TestAlbum.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class Album : public TestAlbum {
protected:
    void addRows(int count) {
        for (int added = 0; added < count; ++added) {
            const int i = int(rows.size());
            const std::string name = "pic" + std::to_string(i + 1);
            addPicture((name + ".png").c_str(), 40 + i, 30);
            rows.push_back(
                {.name = name, .size = std::to_string(40 + i) + " x 30", .description = {}, .metadata = {}});
        }
    }
    std::string fileText(const std::string& name) const {
        return readWholeFile(path(("out/" + name).c_str())).toStdString();
    }
    void expectPages() const {
        EXPECT_EQ(fileText("index.htm"), reference.index(rows));
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_EQ(fileText("My Album_" + rows[i].name + ".html"), reference.page(rows, i)) << i;
    }

    AlbumReference reference;
    std::vector<ReferenceRow> rows;
};

QByteArray colored(const char* number) {
    return albumText::fncColorToHtml(text(number));
}

} // namespace

TEST_F(Album, ColorsKeepTheirUnevenWidth) {
    EXPECT_EQ(colored("0"), "#000000");
    EXPECT_EQ(colored("16776970"), "#AFFFF") << "red 10";
    EXPECT_EQ(colored("1185029"), "#051512") << "5, 21, 18";
    EXPECT_EQ(colored("-2147483634"), "#E0000") << "a system colour isn't resolved";
    EXPECT_EQ(colored("-1"), "#FFFFFF");
}

TEST_F(Album, EveryByteOfIndexAndPagesIsKeptForOneToSixRows) {
    for (const int count : {1, 3, 5, 6}) {
        addRows(count - int(rows.size()));
        ASSERT_TRUE(generate()) << errors().toStdString();
        expectPages();
    }
    EXPECT_EQ(files("out"), "My Album_pic1.html My Album_pic2.html My Album_pic3.html My Album_pic4.html "
                            "My Album_pic5.html My Album_pic6.html index.htm");
    EXPECT_EQ(loaded(path("out/MyImages_My Album/pic6.jpg")).Width(), 45);
    const ImageBox thumbnail = loaded(path("out/MyImages_My Album/pic6_thumb.jpg"));
    EXPECT_TRUE(thumbnail.Width() == 150 && thumbnail.Height() == 150) << "proportions are not kept";
    EXPECT_EQ(thumbnail.ExifValueByName(text("Software")), text("Tarsel JPEG"));
    for (const char* name : {"first", "previous", "home", "next", "last", "violet", "blue_cell"})
        EXPECT_TRUE(loaded(path("out/MyImages_My Album/") + text(name) + text(".gif")).HasImage()) << name;
    EXPECT_EQ(states(), "written written written written written written");
}

TEST_F(Album, EveryOptionReachesThePages) {
    addRows(3);
    auto& s = options.settings;
    s.PicturesPerRow = reference.perRow = 1;
    s.PageStyle = 1;
    s.AlbumBackground = 0x030201;
    s.BorderColor = 0x0000FF;
    s.ContainerBackground = 2;
    s.ContainerColor = 0xFF0000;
    s.BorderSize = 0;
    s.TableBorderSize = 8;
    s.CellBorderColor = 0x00FF00;
    s.FontSizeIndex = 4;
    s.FontColor = 0x808080;
    s.ShowFileName = s.ShowImageResolution = 0;
    s.ProcessTaskBasket = s.OpenWhenOver = s.Progressive = 1;
    s.ThumbnailWidth = 30;
    halveSizes();
    reference.body = "";
    reference.bodyColors = " link=#FF0000 bgcolor=#010203";
    reference.cell = " bgcolor=#0000FF";
    reference.border = "0";
    reference.tableBorder = "8";
    reference.tableColor = "#00FF00";
    reference.fontSize = "5";
    reference.fontColor = "#808080";
    reference.names = reference.sizes = false;
    ASSERT_TRUE(generate());
    expectPages();
    EXPECT_EQ(desktop.opened, QStringList(path("out/index.htm")));
    EXPECT_EQ(loaded(path("out/MyImages_My Album/pic1.jpg")).Width(), 20) << "the tasks ran";
    EXPECT_EQ(loaded(path("out/MyImages_My Album/pic1_thumb.jpg")).Width(), 30);
    EXPECT_TRUE(readWholeFile(path("out/MyImages_My Album/pic1.jpg")).contains("\xFF\xC2")) << "progressive";
    EXPECT_FALSE(QFile::exists(path("out/MyImages_My Album/violet.gif")));

    s.PicturesPerRow = reference.perRow = 0;
    s.ContainerBackground = 1;
    reference.cell = "";
    ASSERT_TRUE(generate());
    expectPages();
}

TEST_F(Album, PagesShowDescriptionsAndTheChosenMetadataOfTheSource) {
    addPicture("a.jpg", 16, 16, [](ImageBox& edited) {
        edited.ExifSet(text("Artist"), text(" Jo <b> "));
        edited.ExifSet(text("BodySerialNumber"), text("12345"));
        setIptcText(edited.metadata(), "IptcCaption", text("Lake"));
        setIptcList(edited.metadata(), "IptcKeyword", {text("x"), text("y")});
    });
    addPicture("b.png", 16, 16);
    pages.setSubItem(0, BasketColumn::Description, text(" Tom & \u0160\u00F1 "));
    pages.setSubItem(1, BasketColumn::Description, text("  "));
    options.metadata = {text("IPTC - Caption"), text("EXIF - Artist"),   text("IPTC - Keywords"),
                        text("EXIF - Make"),    text("EXIF - Software"), text("nonsense")};
    ASSERT_TRUE(generate());
    const auto line = [](const char* size, const char* content) {
        return std::string("\r\n<tr><td width=100%><p align=left><font size=") + size +
               " color=#000000 face='Sans'>" + content + "</td></tr>";
    };
    rows = {{.name = "a",
             .size = "16 x 16",
             .description = " Tom &#38; \x8A&#241; ",
             .metadata =
                 line("3", "<br><b>IPTC Metadata</font>") + line("2", "<b>Caption</b> - Lake</font>") +
                 line("3", "<br><b>EXIF Metadata</b></font>") +
                 line("2", "<b>Artist</b> - Jo &#60;b></font>") + line("2", "<b>Keywords</b> - x,y</font>")},
            {.name = "b", .size = "16 x 16", .description = {}, .metadata = {}}};
    expectPages();
    EXPECT_EQ(metadataLines().size(), 65);
    for (const bool strips : {false, true}) {
        options.settings.StripPrivate = strips;
        ASSERT_TRUE(generate());
        for (const char* name : {"a.jpg", "a_thumb.jpg"})
            EXPECT_EQ(readWholeFile(path("out/MyImages_My Album/") + text(name)).contains("12345"), !strips);
    }
}

TEST_F(Album, NamesThatReferencesCannotCarryAreEscaped) {
    EXPECT_EQ(albumText::reference(text("a b_\u00FC(1),+~.jpg")), "a b_\xFC(1),+~.jpg") << "plain names stay";
    EXPECT_EQ(albumText::reference(text(" a#b%c&d'e\"f:g?h<i|j")),
              "%20a%23b%25c%26d%27e%22f%3Ag%3Fh%3Ci%7Cj");
    EXPECT_EQ(albumText::reference(text("\u6E56\u00F1\U0001F600")), "%E6%B9%96%C3%B1%F0%9F%98%80");
    EXPECT_EQ(albumText::text(text("it's \u6E56 \U0001F600 \u00C2\u00A7")),
              "it's &#28246; &#128512; \xC2\xA7");
    EXPECT_EQ(albumText::quotedText(text("O'Hara")), "O&#39;Hara");
}

TEST_F(Album, ARowWhosePictureFailsHasItsPageAndTheRunGoesOn) {
    addRows(1);
    addRow("gone.jpg", "gone");
    writeFile("notes.txt", "no picture");
    addRow("notes.txt", "notes");
    addPicture("blocked.png", 50, 20);
    ASSERT_TRUE(QDir().mkpath(path("out/MyImages_My Album/blocked_thumb.jpg")));
    addPicture("last.png", 7, 7);
    for (const char* name : {"gone", "notes"})
        rows.push_back(
            {.name = name, .size = "40 x 30", .description = {}, .metadata = {}, .hasPicture = false});
    rows.push_back(
        {.name = "blocked", .size = "50 x 20", .description = {}, .metadata = {}, .hasPicture = false});
    rows.push_back({.name = "last", .size = "7 x 7", .description = {}, .metadata = {}});
    EXPECT_TRUE(generate());
    expectPages();
    EXPECT_EQ(states(), "written failed skipped failed written");
    ASSERT_EQ(desktop.reports.size(), 1U) << "of the first row that fails";
    EXPECT_EQ(desktop.reports[0].ErrRoutine, text("Album.fncGenerateJPGsForAlbum"));
    EXPECT_TRUE(reasons()[1].contains(text("gone.jpg")) && reasons()[3].contains(text("blocked_thumb.jpg")));
    EXPECT_EQ(progress.values, std::vector<int>({0, 1, 2, 3, 4, 5}));
}

TEST_F(Album, AnErrorOrACancelLeavesTheOldIndexAndWhatWasWritten) {
    addRows(3);
    writeFile("out/index.htm", "old");
    ASSERT_TRUE(QDir().mkpath(path("out/My Album_pic2.html")));
    EXPECT_FALSE(generate());
    EXPECT_EQ(desktop.reports.back().ErrRoutine, text("fncGenerateAlbum"));
    EXPECT_EQ(states(), "written failed skipped");
    EXPECT_EQ(files("out"), "My Album_pic1.html index.htm");
    ASSERT_TRUE(QDir().rmdir(path("out/My Album_pic2.html")));
    desktop.onYield = [this] { CancelRequested = results.size() == 1; };
    EXPECT_TRUE(generate());
    CancelRequested = false;
    EXPECT_EQ(states(), "written skipped skipped");
    EXPECT_EQ(fileText("index.htm"), "old");
}

TEST_F(Album, OneNameTwiceIsReportedAndItsOwnImagesReplaceNoSource) {
    addRows(2);
    pages.setText(1, text("pic1"));
    EXPECT_TRUE(generate());
    EXPECT_EQ(reasons(), QStringList({QString(), text("replaces the file of row 1")}));
    EXPECT_EQ(loaded(path("out/MyImages_My Album/pic1.jpg")).Width(), 41) << "the later one wins";
    pages.clear();
    addRow(path("out/MyImages_My Album/home.gif"), text("home"));
    EXPECT_FALSE(generate());
}
