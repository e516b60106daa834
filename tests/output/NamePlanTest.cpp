// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/NamePlan.h"
#include "base/SafeFileWriter.h"
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

std::vector<PlannedName> planOf(const TestBasket& basket) {
    return planNames(basket.pages, basket.tasks.lvEditBatch, basket.settings);
}

void useHybrid(TestBasket& basket, const char* prefix, const char* suffix = "[No Prefix]") {
    basket.settings.NameOption = 1;
    basket.settings.DestinationOption = 1;
    basket.settings.RenamePrefix = text(prefix);
    basket.settings.RenameSuffix = text(suffix);
}

} // namespace

TEST(NamePlan, PlannedNamesAreTheNamesOfTheRun) {
    for (const char* token :
         {"[No Prefix]", "Holiday", "[Source resolution]", "[Source size]", "[EXIF Artist]", "[EXIF Date]",
          "[EXIF X-Y Dimension]", "[IPTC Headline]", "[IPTC Ref. Date]", "[Date Today-Time]",
          "[Resulting resolution]", "[Source Date Modified]"}) {
        TestBasket basket;
        useHybrid(basket, token);
        basket.addPicture(text("a.jpg"), 31, 17, [](ImageBox& maker) {
            maker.ExifSet(text("Artist"), text("Jo"));
            maker.ExifSet(text("DateTime"), text("2001:02:03 04:05:06"));
        });
        basket.addPicture(text("b.jpg"), 9, 9);
        const auto planned = planOf(basket);
        ASSERT_TRUE(basket.run());
        for (size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(planned.at(i).target, basket.results.at(i).target) << token;
            EXPECT_EQ(planned.at(i).clash, NameClash::None) << token;
        }
    }
}

TEST(NamePlan, ASizeAfterTasksIsNotKnownBeforeTheRun) {
    TestBasket basket;
    basket.addTask(text("3"), text("resize"), {"False", "50"});
    basket.addPicture(text("a.jpg"));
    useHybrid(basket, "x", "[Resulting resolution]");
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::NotKnown);
    basket.settings.ProcessEditingList = 0;
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::None);
    EXPECT_TRUE(planOf(basket).at(0).target.endsWith(text("x_a_24x16.jpg")));
}

TEST(NamePlan, TellsWhatEachNameRunsInto) {
    TestBasket basket;
    basket.settings.DestinationFolder = basket.folder();
    basket.addPicture(text("own.jpg"));
    writeFileSafely(basket.path(text("there.jpg")), "x");
    basket.addRow(basket.path(text("a.png")), text("there"));
    basket.addRow(basket.path(text("own.png")), text("own"));
    basket.addRow(basket.path(text("b.png")), text("free"));
    basket.addRow(basket.path(text("c.png")), text("free"));
    basket.addRow(basket.path(text("page.jpg")), text("document"));
    writeFileSafely(basket.path(text("document.jpg")), "x");
    basket.pages.setSubItem(5, BasketColumn::SourcePath, basket.path(text("document.jpg")));
    const auto planned = planOf(basket);
    EXPECT_EQ(planned[0].clash, NameClash::OwnSource);
    EXPECT_EQ(planned[5].clash, NameClash::OwnSource) << "the document of an extracted page";
    EXPECT_EQ(planned[1].clash, NameClash::Exists);
    EXPECT_EQ(planned[2].clash, NameClash::OtherSource);
    EXPECT_EQ(planned[2].otherRow, 1);
    EXPECT_EQ(planned[3].clash, NameClash::None);
    EXPECT_EQ(planned[4].clash, NameClash::SameAsRow);
    EXPECT_EQ(planned[4].otherRow, 4);
    EXPECT_TRUE(clashText(planned[4], false).contains(text("row 4")));
    EXPECT_NE(clashText(planned[1], true), clashText(planned[1], false));
}

TEST(NamePlan, ASourceReachedThroughALinkIsStillTheRowsOwn) {
    TestBasket basket;
    basket.addPicture(text("a.jpg"));
    ASSERT_TRUE(QFile::link(basket.folder(), basket.path(text("way"))));
    basket.settings.DestinationFolder = basket.path(text("way//"));
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::OwnSource);
}

TEST(NamePlan, NamesThatCantBeAreToldBeforeTheRun) {
    TestBasket basket;
    useHybrid(basket, "[EXIF Artist]");
    basket.addPicture(text("a.jpg"), 8, 8,
                      [](ImageBox& maker) { maker.ExifSet(text("Artist"), text("../x")); });
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::Invalid);
    basket.settings.NameOption = 2;
    basket.settings.RenameGenericPattern = text("40000");
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::Invalid);
    EXPECT_TRUE(basket.desktop.reports.empty()) << "planning shows no error report";
}

TEST(NamePlan, AnUnreadableSourceLeavesItsNameUnknown) {
    TestBasket basket;
    basket.addRow(basket.path(text("gone.jpg")), text("gone"));
    EXPECT_EQ(planOf(basket).at(0).clash, NameClash::None) << "the name needs no look at the file";
    useHybrid(basket, "[EXIF Make]");
    const PlannedName planned = planOf(basket).at(0);
    EXPECT_EQ(planned.clash, NameClash::NotKnown);
    EXPECT_TRUE(planned.fact.contains(text("gone.jpg")));
}

TEST(NamePlan, SlicesGiveWhatTheWholeGives) {
    TestBasket basket;
    for (int i = 0; i < 10; ++i)
        basket.addRow(basket.path(text("x%1.png").arg(i)), text("n%1").arg(i % 4));
    const auto whole = planOf(basket);
    NamePlanner planner(basket.pages, basket.tasks.lvEditBatch, basket.settings);
    std::vector<PlannedName> sliced;
    while (!planner.finished()) {
        const auto slice = planner.next(3);
        sliced.insert(sliced.end(), slice.begin(), slice.end());
    }
    ASSERT_EQ(sliced.size(), whole.size());
    for (size_t i = 0; i < whole.size(); ++i) {
        EXPECT_EQ(sliced[i].target, whole[i].target);
        EXPECT_EQ(sliced[i].clash, whole[i].clash);
        EXPECT_EQ(sliced[i].otherRow, whole[i].otherRow);
    }
    EXPECT_TRUE(planner.next(5).empty());
}
