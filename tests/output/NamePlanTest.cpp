// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/NamePlan.h"
#include "tests/output/TestBasket.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

class NamePlan : public testing::Test, public TestBasket {
protected:
    std::vector<PlannedName> plan() const { return planNames(pages, tasks.lvEditBatch, settings); }
    NameClash firstClash() const { return plan().at(0).clash; }
};

} // namespace

TEST_F(NamePlan, PlannedNamesAreTheNamesOfTheRun) {
    addPicture("a.jpg", 31, 17, [](ImageBox& maker) {
        maker.ExifSet(text("Artist"), text("Jo"));
        maker.ExifSet(text("DateTime"), text("2001:02:03 04:05:06"));
    });
    addPicture("b.jpg", 9, 9);
    for (const char* token :
         {"[No Prefix]", "Holiday", "[Source resolution]", "[Source size]", "[EXIF Artist]", "[EXIF Date]",
          "[EXIF X-Y Dimension]", "[IPTC Headline]", "[IPTC Ref. Date]", "[Date Today-Time]",
          "[Resulting resolution]", "[Source Date Modified]"}) {
        SCOPED_TRACE(token);
        for (const QString& old : QDir(path("out")).entryList(QDir::Files))
            ASSERT_TRUE(QFile::remove(path("out/") + old));
        nameByParts(token);
        const auto planned = plan();
        ASSERT_TRUE(run());
        for (size_t i = 0; i < 2; ++i) {
            EXPECT_EQ(planned.at(i).target, results.at(i).target);
            EXPECT_EQ(planned.at(i).clash, NameClash::None);
        }
    }
}

TEST_F(NamePlan, ASizeAfterTasksIsNotKnownBeforeTheRun) {
    halveSizes();
    addPicture("a.jpg");
    nameByParts("x", "[Resulting resolution]");
    EXPECT_EQ(firstClash(), NameClash::NotKnown);
    settings.ProcessEditingList = 0;
    EXPECT_EQ(firstClash(), NameClash::None);
    EXPECT_TRUE(plan().at(0).target.endsWith(text("x_a_24x16.jpg")));
}

TEST_F(NamePlan, FindsWhatEachNameRunsIntoAlsoThroughALinkedFolder) {
    addPicture("own.jpg");
    writeFile("there.jpg", "x");
    addRow("a.png", "there");
    addRow("own.png", "own");
    addRow("b.png", "free");
    addRow("c.png", "free");
    ASSERT_TRUE(QFile::link(folder(), path("way")));
    for (const QString& destination : {folder(), path("way//")}) {
        settings.DestinationFolder = destination;
        const auto planned = plan();
        EXPECT_EQ(planned[0].clash, NameClash::OwnSource);
        EXPECT_EQ(planned[1].clash, NameClash::Exists);
        EXPECT_EQ(planned[2].clash, NameClash::OtherSource);
        EXPECT_EQ(planned[2].otherRow, 1);
        EXPECT_EQ(planned[3].clash, NameClash::None);
        EXPECT_EQ(planned[4].clash, NameClash::SameAsRow);
        EXPECT_TRUE(contains(clashText(planned[4], false), "row 4"));
        EXPECT_NE(clashText(planned[1], true), clashText(planned[1], false));
    }
}

TEST_F(NamePlan, NamesThatCannotBeAreFoundBeforeTheRun) {
    nameByParts("[EXIF Artist]");
    addPicture("a.jpg", 8, 8, [](ImageBox& maker) { maker.ExifSet(text("Artist"), text("../x")); });
    EXPECT_EQ(firstClash(), NameClash::Invalid);
    settings.NameOption = 2;
    settings.RenameGenericPattern = text("40000");
    EXPECT_EQ(firstClash(), NameClash::Invalid);
    EXPECT_TRUE(desktop.reports.empty()) << "planning shows no error report";
}

TEST_F(NamePlan, AnUnreadableSourceLeavesItsNameUnknown) {
    addRow("gone.jpg", "gone");
    EXPECT_EQ(firstClash(), NameClash::None) << "the name needs no look at the file";
    nameByParts("[EXIF Make]");
    EXPECT_EQ(firstClash(), NameClash::NotKnown);
    EXPECT_TRUE(contains(plan().at(0).fact, "gone.jpg"));
}

TEST_F(NamePlan, IsTheSameInSlices) {
    for (int i = 0; i < 10; ++i)
        addRow("x.png", qPrintable(text("n%1").arg(i % 4)));
    const auto all = plan();
    NamePlanner planner(pages, tasks.lvEditBatch, settings);
    size_t i = 0;
    while (!planner.finished())
        for (const PlannedName& name : planner.next(3)) {
            EXPECT_EQ(name.target, all.at(i).target);
            EXPECT_EQ(name.clash, all.at(i).clash);
            EXPECT_EQ(name.otherRow, all.at(i++).otherRow);
        }
    EXPECT_EQ(i, all.size());
    EXPECT_TRUE(planner.next(5).empty());
}
