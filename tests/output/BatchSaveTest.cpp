// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "tasks/modProcessTasks.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

/// The kind of a JPEG file's frame header: 0xC0 baseline, 0xC2 progressive; and its number of components.
std::pair<int, int> frameOf(const QString& path) {
    const QByteArray bytes = readWholeFile(path);
    for (qsizetype at = 2; at + 9 < bytes.size();) {
        const int marker = quint8(bytes[at + 1]);
        if (marker >= 0xC0 && marker <= 0xC2)
            return {marker, quint8(bytes[at + 9])};
        at += 2 + (quint8(bytes[at + 2]) << 8 | quint8(bytes[at + 3]));
    }
    return {};
}

} // namespace

TEST(BatchSave, SavesEveryRowUnderItsName) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 24, 16);
    basket.addPicture(text("b.jpg"), 7, 31);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written written");
    EXPECT_EQ(basket.reasons(), QStringList({QString(), QString()}));
    EXPECT_EQ(basket.files(text("out")), "a.jpg b.jpg");
    EXPECT_EQ(loaded(basket.path(text("out/b.jpg"))).Height(), 31);
    EXPECT_EQ(basket.progress.maximum, 2);
    EXPECT_EQ(basket.progress.values, std::vector<int>({0, 1, 2}));
    EXPECT_FALSE(basket.progress.visible);
}

TEST(BatchSave, AnEmptyBasketEndsWell) {
    TestBasket basket;
    EXPECT_TRUE(basket.run());
    EXPECT_TRUE(basket.results.empty());
    EXPECT_TRUE(basket.progress.values.empty());
}

TEST(BatchSave, NumbersFollowTheRowsAndSkippedRowsUseTheirsUp) {
    TestBasket basket;
    basket.settings.NameOption = 2;
    basket.settings.RenameGenericPattern = text("7");
    basket.addPicture(text("a.jpg"));
    const QString unknown = basket.path(text("b.dat"));
    writeFileSafely(unknown, "no picture at all");
    basket.addRow(unknown, text("b"));
    basket.addPicture(text("c.jpg"));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written skipped written");
    EXPECT_EQ(basket.files(text("out")), "Sample7.jpg Sample9.jpg");
    EXPECT_TRUE(basket.desktop.reports.empty()) << "a skipped file gives no message";
}

TEST(BatchSave, HybridNamesTellSizesBeforeAndAfterTheTasks) {
    TestBasket basket;
    basket.settings.NameOption = 1;
    basket.settings.DestinationOption = 1;
    basket.settings.RenamePrefix = text("[Source resolution]");
    basket.settings.RenameSuffix = text("[Resulting resolution]");
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addPicture(text("a.jpg"), 40, 20);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.files(text("out")), "40x20_a_20x10.jpg");
}

TEST(BatchSave, TheHybridNameInTheSourceFolderLiesBesideItsSource) {
    TestBasket basket;
    QDir().mkpath(basket.path(text("pics")));
    basket.settings.NameOption = 1;
    basket.settings.RenamePrefix = text("[No Prefix]");
    basket.settings.RenameSuffix = text("new");
    basket.addPicture(text("pics/a.jpg"));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.files(text("pics")), "_a_new.jpg a.jpg");
}

TEST(BatchSave, OverwriteOffLeavesWhatIsThere) {
    TestBasket basket;
    basket.settings.Overwrite = 0;
    basket.addPicture(text("a.jpg"));
    basket.addPicture(text("b.jpg"));
    writeFileSafely(basket.path(text("out/a.jpg")), "precious");
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "skipped written");
    EXPECT_EQ(basket.reasons().first(), SkipReason::Exists);
    EXPECT_EQ(readWholeFile(basket.path(text("out/a.jpg"))), QByteArray("precious"));
    EXPECT_EQ(basket.progress.values, std::vector<int>({0, 1, 2})) << "the bar moves on";
}

TEST(BatchSave, OfTwoRowsWithOneNameTheSecondStays) {
    TestBasket basket;
    QDir().mkpath(basket.path(text("x")));
    QDir().mkpath(basket.path(text("y")));
    basket.addPicture(text("x/a.jpg"), 10, 10);
    basket.addPicture(text("y/a.jpg"), 20, 20);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(loaded(basket.path(text("out/a.jpg"))).Width(), 20);
    basket.settings.Overwrite = 0;
    QFile::remove(basket.path(text("out/a.jpg")));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written skipped");
}

TEST(BatchSave, ASourceInTheDestinationFolderIsReplacedInPlace) {
    TestBasket basket;
    basket.settings.DestinationFolder = basket.folder();
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    const QString source = basket.addPicture(text("a.jpg"), 40, 20);
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(loaded(source).Width(), 20);
    EXPECT_EQ(basket.files(), "a.jpg") << "no debris beside it";
}

TEST(BatchSave, TheOptionsRuleTheEncoding) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"), 64, 64);
    const QString result = basket.path(text("out/a.jpg"));
    basket.run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC0, 3));
    const qint64 usual = QFile(result).size();
    basket.settings.JpegProgressive = 1;
    basket.settings.JpegDepth = 1;
    basket.run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC2, 1));
    basket.settings = BatchSave();
    basket.settings.DestinationFolder = basket.path(text("out/"));
    basket.settings.JpegQuality = 10;
    basket.run();
    EXPECT_EQ(frameOf(result), std::make_pair(0xC0, 3)) << "settings of the run before are gone";
    EXPECT_LT(QFile(result).size(), usual);
}

TEST(BatchSave, ACancelLeavesTheFilesMadeSoFar) {
    TestBasket basket;
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"})
        basket.addPicture(text(name));
    basket.desktop.onYield = [&] { CancelRequested = basket.desktop.yields == 3; };
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written written skipped skipped");
    EXPECT_EQ(basket.reasons().last(), SkipReason::Cancelled);
    EXPECT_EQ(basket.files(text("out")), "a.jpg b.jpg");
    EXPECT_FALSE(CancelRequested);
    EXPECT_FALSE(basket.progress.visible);
    basket.desktop.onYield = {};
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.files(text("out")), "a.jpg b.jpg c.jpg d.jpg") << "the next run is not cancelled";
}

TEST(BatchSave, ASliceIsNumberedAsInTheWholeBasket) {
    TestBasket basket;
    basket.settings.NameOption = 2;
    for (const char* name : {"a.jpg", "b.jpg", "c.jpg", "d.jpg"})
        basket.addPicture(text(name));
    basket.slice.firstRow = 2;
    basket.slice.lastRow = 3;
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.files(text("out")), "Sample2.jpg Sample3.jpg");
    ASSERT_EQ(basket.results.size(), 2u);
    EXPECT_EQ(basket.results[0].row, 2);
    EXPECT_EQ(basket.progress.maximum, 2);
    basket.slice.firstRow = 9;
    basket.slice.lastRow = 12;
    EXPECT_TRUE(basket.run());
    EXPECT_TRUE(basket.results.empty());
}

TEST(BatchSave, ADryRunTellsNamesAndWritesNothing) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.slice.dryRun = true;
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.targets(), "a.jpg");
    EXPECT_EQ(basket.states(), "skipped");
    EXPECT_EQ(basket.reasons().first(), SkipReason::DryRun);
    EXPECT_EQ(basket.files(text("out")), "");
}

TEST(BatchSave, EachResultIsToldAsSoonAsItsRowIsDone) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.addPicture(text("b.jpg"));
    std::vector<int> barWhenTold;
    basket.slice.onRow = [&](const RowResult&) { barWhenTold.push_back(basket.progress.values.back()); };
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(barWhenTold, std::vector<int>({0, 1}));
}

TEST(BatchSave, RowsOfAWbmpFileGoThroughTheOtherRoad) {
    TestBasket basket;
    const QString path = basket.path(text("dot.wbmp"));
    writeFileSafely(path, QByteArray("\0\0\x08\x02\x0F\xF0", 6));
    basket.addRow(path, text("dot"));
    EXPECT_TRUE(basket.run());
    ASSERT_EQ(basket.states(), "written");
    EXPECT_EQ(loaded(basket.path(text("out/dot.jpg"))).Width(), 8);
}

TEST(BatchSave, ABasketThatShrinksDuringTheRunEndsItWithAReport) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    basket.addPicture(text("b.jpg"));
    basket.desktop.onYield = [&] {
        if (basket.desktop.yields == 2)
            basket.pages.clear();
    };
    EXPECT_FALSE(basket.run());
    EXPECT_EQ(basket.files(text("out")), "a.jpg");
    EXPECT_EQ(basket.desktop.reports.size(), 1u);
}

TEST(BatchSave, ThePreviewAtFullSizeAndTheBatchGiveTheSamePixels) {
    TestBasket basket;
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addTask(text("5"), text("contrast"), {"60", "True", "True", "True"});
    basket.addTask(text("7"), text("sharpen"), {"3"});
    basket.addTask(text("1"), text("flip"), {"0"});
    basket.addTask(text("2"), text("rotate"), {"True", "7", "255"});
    basket.addTask(text("10"), text("text"),
                   {"True", "False", "True", "0", "2", "DejaVu Sans", "10", "True", "False", "False",
                    "16777215", "0", "0", "8", "Batch", "0", "0"});
    const QString source = basket.addPicture(text("a.jpg"), 211, 127);
    ImageBox preview = loaded(source);
    basket.tasks.lvEdit.selectOnly(basket.tasks.count() - 1);
    ASSERT_TRUE(modProcessTasks::subProcessPages(basket.tasks.lvEdit, basket.tasks.lvEditBatch, preview,
                                                 nullptr, false));
    preview.JpegQuality = 80;
    preview.SaveToFile(basket.path(text("preview.jpg")));
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.box.picture(), preview.picture()) << "before encoding";
    EXPECT_EQ(loaded(basket.path(text("out/a.jpg"))).picture(),
              loaded(basket.path(text("preview.jpg"))).picture());
}
