// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tests/output/TestBasket.h"

#include <cstring>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// Three rows of which the middle one is the file.
void addAround(TestBasket& basket, const char* name) {
    basket.addPicture("a.jpg");
    basket.addRow(name, "b");
    basket.addPicture("c.jpg");
}

/// A picture whose name is to hold an EXIF value.
void nameByExif(TestBasket& basket, const char* attribute, const char* value) {
    basket.nameByParts(qPrintable(text("[EXIF %1]").arg(text(attribute).remove(text("Time")))));
    basket.addPicture("a.jpg", 8, 8,
                      [&](ImageBox& maker) { ASSERT_TRUE(maker.ExifSet(text(attribute), text(value))); });
}

/// What a run comes to in which something is wrong with a row.
struct Trouble {
    const char* what;
    std::function<void(TestBasket&)> arrange;
    const char *states, *files; ///< files in the destination folder; nullptr for names too long for a table
    const char* error;          ///< how the only report begins; empty for none
    const char* reason;         ///< part of what the result of the row says
};

const Trouble troubles[] = {
    {"a missing source", [](TestBasket& basket) { addAround(basket, "missing.jpg"); },
     "written failed skipped", "a.jpg", "fncSaveSinglePage: 53 - ", "missing.jpg"},
    {"a damaged picture of a known kind",
     [](TestBasket& basket) {
         basket.writeFile("b.jpg", QByteArray::fromHex("ffd8ffe000104a46494600010100000100010000"));
         addAround(basket, "b.jpg");
     },
     "written failed skipped", "a.jpg", "fncSaveSinglePage: 481 - ", "b.jpg"},
    {"a file that is not a picture, whose row uses up its number",
     [](TestBasket& basket) {
         basket.writeFile("b.jpg", "Dear Sir, this is a letter.");
         addAround(basket, "b.jpg");
         basket.settings.NameOption = 2;
         basket.settings.RenameGenericPattern = text("7");
     },
     "written skipped written", "Sample7.jpg Sample9.jpg", "", ""},
    {"a missing file of the other formats", [](TestBasket& basket) { addAround(basket, "missing.wbmp"); },
     "written skipped written", "a.jpg c.jpg", "", "the file is missing"},
    {"an unreadable date in a name",
     [](TestBasket& basket) { nameByExif(basket, "DateTime", "yesterday at noon.."); }, "written", "_a_.jpg",
     "fncRetrieveNamingString: 13 - ", "the name lacks [EXIF Date]: "},
    {"a name that would leave its folder",
     [](TestBasket& basket) { nameByExif(basket, "Artist", "../stolen"); }, "failed", "",
     "fncSaveSinglePage: ", "../stolen"},
    {"a name with a folder in it", [](TestBasket& basket) { nameByExif(basket, "Artist", "1/60"); }, "failed",
     "", "fncSaveSinglePage: ", "1/60"},
    {"a name that is too long",
     [](TestBasket& basket) {
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg"});
         basket.pages.setText(0, QString(251, QLatin1Char('n'))); // the longest possible one
         basket.pages.setText(1, QString(252, QLatin1Char('m')));
     },
     "written failed skipped", nullptr, "fncSaveSinglePage: ", "mmmm.jpg"},
    {"a count beyond 16 bits",
     [](TestBasket& basket) {
         basket.settings.NameOption = 2;
         basket.settings.RenameGenericPattern = text("32766");
         basket.addPictures({"a.jpg", "b.jpg", "c.jpg", "d.jpg"});
     },
     "written written failed skipped", "Sample32766.jpg Sample32767.jpg", "fncSaveSinglePage: 6 - ", ""},
    {"a folder that has gone",
     [](TestBasket& basket) {
         basket.addPicture("a.jpg");
         basket.settings.DestinationFolder = basket.path("gone/");
     },
     "failed", "", "fncSaveSinglePage: 76 - ", "gone/a.jpg"},
    {"a side file with a bad date",
     [](TestBasket& basket) {
         basket.addPicture("a.jpg");
         basket.importExif("bad.xiff", "\"Artist\",\"Jo\"\r\n\"DateTime\",\"never\"\r\n");
     },
     "failed", "", "fncSaveSinglePage: 13 - ", "bad.xiff, record 2: "},
    {"a side file that ends in a record",
     [](TestBasket& basket) {
         basket.addPicture("a.jpg");
         basket.importExif("bad.xiff", "\"Artist\",\"Jo\"\r\n\"alone\"\r\n");
     },
     "failed", "", "fncSaveSinglePage: 62 - ", "bad.xiff, record 2: Input past end of file"},
    {"a source that is cut short",
     [](TestBasket& basket) {
         const QByteArray bytes = readWholeFile(basket.addPicture("a.jpg", 160, 160));
         basket.writeFile("a.jpg", bytes.left(bytes.size() * 3 / 4));
     },
     "written", "a.jpg", "", "damaged"},
};

} // namespace

TEST(BatchFailure, OfARowIsReportedAndEndsTheRunWhereItMust) {
    for (const Trouble& trouble : troubles) {
        SCOPED_TRACE(trouble.what);
        TestBasket basket;
        trouble.arrange(basket);
        const std::string sources = basket.files();
        const bool fails = text(trouble.states).contains(text("failed"));
        basket.desktop.onReport = [&] { EXPECT_EQ(basket.progress.visible, !fails) << "the bar goes first"; };
        EXPECT_EQ(basket.run(), !fails);
        EXPECT_EQ(basket.states(), trouble.states);
        if (trouble.files) {
            EXPECT_EQ(basket.files("out"), trouble.files);
        }
        EXPECT_EQ(basket.files(), sources);
        EXPECT_EQ(basket.desktop.reports.size(), *trouble.error ? 1u : 0u);
        EXPECT_EQ(basket.errors().left(qsizetype(strlen(trouble.error))), text(trouble.error));
        EXPECT_TRUE(contains(basket.reasons().join(QLatin1Char('\n')), trouble.reason));
        if (fails && basket.results.back().state == RowState::Skipped) {
            EXPECT_EQ(basket.results.back().skipped, SkipReason::NotReached);
        }
        EXPECT_FALSE(basket.progress.visible);
    }
}

TEST(BatchFailure, OfATaskIsReportedAndThePictureIsSavedAsFarAsItCame) {
    TestBasket basket;
    basket.halveSizes();
    basket.addTask("7", "sharpen", {"very"});
    basket.halveSizes();
    basket.addPicture("a.jpg", 40, 20);
    for (const bool dryRun : {false, true}) {
        basket.slice.dryRun = dryRun;
        EXPECT_TRUE(basket.run());
        for (const char* part : {"13 - ", "a.jpg: ", "task 2 (sharpen): "})
            EXPECT_TRUE(contains(basket.reasons().first(), part)) << dryRun;
        EXPECT_EQ(basket.states(), dryRun ? "skipped" : "written");
    }
    EXPECT_EQ(basket.width("out/a.jpg"), 20);
    EXPECT_TRUE(basket.errors().startsWith(text("subProcessPages: ")));
}
