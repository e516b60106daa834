// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"
#include "collections/Basket.h"
#include "collections/clsFileInfo.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// Two pictures of which the first row's file is to take the place of the second row's source "b.jpg". Their
/// widths differ.
class TwoRowsOneTarget : public TestBasket {
public:
    TwoRowsOneTarget() {
        settings.DestinationFolder = folder();
        addPicture("a.png", 30, 20);
        addPicture("b.jpg", 50, 20);
        pages.setText(0, text("b"));
    }
    QByteArray bytes() const { return readWholeFile(path("b.jpg")); }
};

struct Way {
    const char* what;
    std::function<void(TestBasket&)> arrange;
};

/// Ways in which a name can turn out to be the second row's source.
const Way ways[] = {
    {"the same name", [](TestBasket&) {}},
    {"a linked folder",
     [](TestBasket& basket) {
         ASSERT_TRUE(QFile::link(basket.folder(), basket.path("way")));
         basket.settings.DestinationFolder = basket.path("way/");
     }},
    {"a link in the place of the target",
     [](TestBasket& basket) {
         ASSERT_TRUE(QFile::link(basket.path("b.jpg"), basket.path("out/b.jpg")));
         basket.settings.DestinationFolder = basket.path("out/");
     }},
    {"a source through a link",
     [](TestBasket& basket) {
         ASSERT_TRUE(QFile::link(basket.path("b.jpg"), basket.path("c.jpg")));
         basket.pages.setTag(1, basket.path("c.jpg"));
         basket.pages.setSubItem(1, BasketColumn::SourcePath, basket.path("c.jpg"));
     }},
    {"the document of an extracted page",
     [](TestBasket& basket) {
         ASSERT_TRUE(QFile::copy(basket.path("b.jpg"), basket.path("page.jpg")));
         basket.pages.setTag(1, basket.path("page.jpg"));
     }},
    {"a size after the tasks",
     [](TestBasket& basket) {
         basket.addTask("1", "flip", {"0"});
         ASSERT_TRUE(QFile::rename(basket.path("b.jpg"), basket.path("30x20.jpg")));
         ASSERT_TRUE(QFile::link(basket.path("30x20.jpg"), basket.path("b.jpg")));
         basket.pages.setText(0, text(""));
         basket.pages.setText(1, text("z"));
         basket.nameByParts("[Resulting resolution]");
         basket.settings.Separator1 = basket.settings.Separator2 = text("[No Separator]");
     }},
};

} // namespace

TEST(ReplacedSources, TheCommandLineRefusesARowWhoseTargetAnotherRowStillNeeds) {
    for (const Way& way : ways)
        for (const auto policy : {SourceReplacing::RefusedUntilDone, SourceReplacing::RefusedToOthers,
                                  SourceReplacing::Refused}) {
            SCOPED_TRACE(way.what);
            TwoRowsOneTarget basket;
            way.arrange(basket);
            const QByteArray untouched = basket.bytes();
            basket.slice.sourceReplacing = policy;
            basket.slice.lastRow = 1;
            EXPECT_TRUE(basket.run());
            EXPECT_EQ(basket.states(), "skipped");
            EXPECT_TRUE(contains(basket.reasons().first(), "source of row 2"));
            EXPECT_EQ(basket.bytes(), untouched);
        }
}

TEST(ReplacedSources, InTheWindowALaterRowReadsTheFileAsItWas) {
    for (const Way& way : ways) {
        SCOPED_TRACE(way.what);
        TwoRowsOneTarget basket;
        way.arrange(basket);
        if (basket.settings.NameOption == 0)
            basket.pages.setText(1, text("z"));
        EXPECT_TRUE(basket.run());
        EXPECT_EQ(basket.states(), "written written");
        EXPECT_TRUE(contains(basket.reasons().first(), "source of row 2"));
        EXPECT_EQ(basket.width("b.jpg"), 30);
        EXPECT_EQ(loaded(basket.results[1].target).Width(), 50);
    }
}

TEST(ReplacedSources, InTheWindowAnOriginalThatWasNotReadIsSavedWhenTheRunEndsEarly) {
    const struct {
        const char* what;
        const char* secondName;
        bool cancelled;
        int rowsBefore;
    } ends[] = {{"cancelled after row 1", "z", true, 2},
                {"an error in row 2", "no/name", false, 2},
                {"the row outside the slice", "z", false, 1}};
    for (const auto& end : ends) {
        TwoRowsOneTarget basket;
        basket.pages.setText(1, text(end.secondName));
        basket.writeFile("b (original).jpg", "taken");
        basket.slice.lastRow = end.rowsBefore;
        basket.slice.onRow = [&](const RowResult&) { CancelRequested = end.cancelled; };
        basket.run();
        CancelRequested = false;
        const QString saved = basket.path("b (original 2).jpg");
        EXPECT_EQ(basket.width("b.jpg"), 30) << end.what;
        EXPECT_EQ(readWholeFile(basket.path("b (original).jpg")), "taken") << end.what;
        ASSERT_TRUE(QFile::exists(saved)) << end.what;
        EXPECT_EQ(basket.width("b (original 2).jpg"), 50) << end.what;
        EXPECT_EQ(basket.reasons().last().contains(text("its original was kept as ") + saved),
                  end.rowsBefore == 2)
            << end.what << ": " << basket.reasons().last().toStdString();
    }
}

TEST(ReplacedSources, AnOriginalIsLetGoOnceItsRowsAreWritten) {
    TwoRowsOneTarget basket;
    for (const char* name : {"c", "d", "e", "f"}) {
        basket.pages.setText(basket.pages.count() - 1, text(name));
        basket.addPicture(qPrintable(text(name) + text(".jpg")), 60, 20);
    }
    std::vector<qsizetype> open;
    basket.slice.readAhead = false; // no thread opens a file while they are counted
    basket.slice.onRow = [&](const RowResult&) {
        open.push_back(QDir(text("/proc/self/fd")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries).size());
    };
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written written written written written written");
    EXPECT_EQ(open.at(3), open.at(0)) << "each row's file takes the place of the next row's source";
    EXPECT_EQ(basket.files(), "a.png b.jpg c.jpg d.jpg e.jpg f.jpg") << "no copies";
}

TEST(ReplacedSources, APictureMayBeSavedOverItselfAndOverOnesThatAreDone) {
    TwoRowsOneTarget basket;
    basket.addPicture("c.png", 70, 20);
    basket.pages.setText(2, text("b"));
    basket.pages.setText(0, text("a"));
    basket.slice.sourceReplacing = SourceReplacing::RefusedUntilDone;
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written written written");
    EXPECT_EQ(basket.reasons().at(1), QString()) << "saved over itself";
    EXPECT_EQ(basket.reasons().at(2), text("replaces the file of row 2"));
    EXPECT_EQ(basket.width("b.jpg"), 70);
    EXPECT_EQ(basket.files(), "a.jpg a.png b.jpg c.png") << "no debris";
}

TEST(ReplacedSources, ASourceOutsideTheSliceOrSkippedIsNotDone) {
    TwoRowsOneTarget basket;
    basket.pages.setText(0, text("a"));
    basket.addPicture("c.png", 70, 20);
    basket.pages.setText(2, text("b"));
    basket.slice.sourceReplacing = SourceReplacing::RefusedUntilDone;
    basket.slice.firstRow = 3;
    const QByteArray before = basket.bytes();
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "skipped");
    EXPECT_EQ(basket.progress.maximum, 1);
    EXPECT_EQ(basket.bytes(), before);
}

TEST(ReplacedSources, ADryRunSaysTheSameAsTheRunAndWritesNothing) {
    TwoRowsOneTarget basket;
    basket.slice.sourceReplacing = SourceReplacing::RefusedUntilDone;
    basket.slice.dryRun = true;
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.reasons(), QStringList({text("would replace the source of row 2"), text("dry run")}));
    EXPECT_EQ(basket.results[0].skipped, SkipReason::Refused);
    EXPECT_EQ(basket.results[1].skipped, SkipReason::DryRun);
    EXPECT_EQ(basket.files(), "a.png b.jpg");
}

namespace {

/// A picture cut short in a file "a.jpg".
QByteArray addDamaged(TestBasket& basket) {
    const QByteArray bytes = readWholeFile(basket.addPicture("a.jpg", 160, 160));
    basket.pages.clear();
    return readWholeFile(basket.writeFile("a.jpg", bytes.left(bytes.size() * 3 / 4)));
}

} // namespace

TEST(ReplacedSources, WhatCouldBeReadOfADamagedFileNeverTakesItsPlace) {
    for (const auto policy : {SourceReplacing::KeptReadable, SourceReplacing::RefusedUntilDone}) {
        TestBasket basket;
        basket.settings.DestinationFolder = basket.folder();
        basket.slice.sourceReplacing = policy;
        const QByteArray damaged = addDamaged(basket);
        basket.addRow("a.jpg", "a");
        basket.addPicture("b.png");
        basket.pages.setText(1, text("a"));
        basket.addPicture("c.jpg");
        EXPECT_TRUE(basket.run());
        EXPECT_EQ(basket.states(), "failed skipped written");
        EXPECT_TRUE(contains(basket.reasons().first(), qPrintable(basket.path("a.jpg"))));
        EXPECT_TRUE(contains(basket.reasons().first(), "read only in part"));
        EXPECT_EQ(readWholeFile(basket.path("a.jpg")), damaged);
    }
}

TEST(ReplacedSources, ADamagedFileThatWasReplacedBeforeItWasReadIsSavedBesideItsPlace) {
    TestBasket basket;
    basket.settings.DestinationFolder = basket.folder();
    const QByteArray damaged = addDamaged(basket);
    basket.addPicture("b.png");
    basket.pages.setText(0, text("a"));
    basket.addRow("a.jpg", "z");
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.states(), "written written");
    EXPECT_EQ(readWholeFile(basket.path("a (original).jpg")), damaged);
}

TEST(ReplacedSources, ANameIsMadeFromTheSourceAsItWas) {
    TwoRowsOneTarget basket;
    const auto sizeOf = [&](const char* name) {
        FileInfo().setFilePath(basket.path(name));
        return FileInfo().fSizeFormated(0);
    };
    basket.writeFile("b.jpg", basket.bytes() + QByteArray(50'000, '\0'));
    const QString sizeOfSecond = sizeOf("b.jpg"), target = basket.folder() + sizeOf("a.png") + text(".jpg");
    ASSERT_TRUE(QFile::rename(basket.path("b.jpg"), target));
    basket.pages.setTag(1, target);
    for (const int row : {0, 1})
        basket.pages.setText(row, {});
    basket.nameByParts("[Source size]");
    basket.settings.Separator1 = basket.settings.Separator2 = text("[No Separator]");
    EXPECT_TRUE(basket.run());
    EXPECT_EQ(basket.results[0].target, target);
    EXPECT_EQ(basket.results[1].target, basket.folder() + sizeOfSecond + text(".jpg"));
}
