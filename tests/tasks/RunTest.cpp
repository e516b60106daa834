// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/Replay.h"
#include "tasks/TaskCheck.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"
#include "tests/tasks/TaskRows.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;
using modProcessTasks::subProcessPages;

namespace {

/// Three canvas rows that add 1, 10 and 100 columns: the width shows which of them ran.
void fillThreeRows(TaskList& tasks) {
    for (const char* columns : {"1", "10", "100"})
        tasks.append(taskRow(12, {"0", columns, "0", "0", "0"}));
}

struct Failure {
    const char* what;
    TaskRow row;
    qint32 number;
    bool isFoundByCheck = true; ///< false for what depends on the picture
};

std::vector<Failure> failures() {
    return {
        {"a width that is empty", taskRow(3, {"True", "", "5"}), 13},
        {"a width of nothing", taskRow(3, {"True", "0", "5"}), 5},
        {"a percent of nothing", taskRow(3, {"False", "0", ""}), 5},
        {"a width beyond 32 bits", taskRow(3, {"True", "9999999999", "5"}), 6},
        {"a percent beyond 16 bits", taskRow(3, {"False", "40000", ""}), 6},
        {"a percent with a sign after it", taskRow(3, {"False", "50%", ""}), 13},
        {"neither true nor false", taskRow(3, {"yes", "50", ""}), 13},
        {"a level in words", taskRow(4, {"much"}), 13},
        {"an angle beyond 16 bits", taskRow(2, {"True", "32768", "0"}), 6},
        {"a colour that is empty", taskRow(2, {"True", "90", ""}), 13},
        {"a check that is empty", taskRow(5, {"60", "1", "", "1"}), 13},
        {"an edge beyond 32 bits", taskRow(8, {"False", "0", "0", "2147483648", "5"}), 6},
        {"a canvas that can't be added", taskRow(12, {"0", "-2147483648", "0", "0", "0"}), 6, false},
        {"a canvas beyond the last coordinate", taskRow(12, {"0", "0", "0", "2147483647", "0"}), 6, false},
        {"a picture to merge that has gone", taskRow(9, {"False", "0", "0", "/nowhere/mark.png"}), 53},
        {"a place beyond 32 bits", textRow("9", "2147483648"), 6},
        {"an unknown position", textRow("10"), 5},
        {"an image frame that doesn't exist", taskRow(13, {"0", "0", "16", "1"}), 9},
        {"a colour frame beyond the last coordinate", taskRow(13, {"0", "1", "2147483647"}), 6, false},
        {"a mask that doesn't exist", taskRow(14, {"True", "0", "8"}), 9},
        {"a shadow that doesn't exist", taskRow(15, {"-9"}), 9},
    };
}

} // namespace

TEST(Run, YieldsOnceForEachRowAndTakesThePointerBack) {
    TestDesktop desktop;
    TaskList tasks;
    ImageBox box = boxWith(unevenPicture(2, 2));
    desktop.busy = true;
    EXPECT_FALSE(subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_TRUE(desktop.busy) << "without rows nothing happens";
    EXPECT_EQ(desktop.yields, 0);
    desktop.busy = false;
    fillThreeRows(tasks);
    bool busyAtYield = true;
    desktop.onYield = [&] { busyAtYield = busyAtYield && desktop.busy; };
    EXPECT_FALSE(subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_EQ(desktop.yields, 3);
    EXPECT_TRUE(busyAtYield);
    EXPECT_FALSE(desktop.busy);
}

TEST(Run, EndsAfterTheSelectedRowOfTheListThatIsInUse) {
    TestDesktop desktop;
    struct Selection {
        int list, preview;
        bool runAll, editing, passPreview;
        int columnsAdded;
    };
    const Selection selections[] = {
        {-1, -1, false, false, true, 111}, {0, -1, false, false, true, 1},  {1, 0, false, false, true, 11},
        {1, 0, false, true, true, 1},      {0, -1, false, true, true, 111}, {0, 0, true, true, true, 111},
        {0, 0, true, false, false, 111},   {1, 0, false, true, false, 11},  {2, -1, false, false, true, 111},
    };
    for (const Selection& s : selections) {
        TaskList tasks;
        fillThreeRows(tasks);
        tasks.lvEdit.selectOnly(s.list);
        tasks.lvEditPreview.selectOnly(s.preview);
        ImageBox box = boxWith(unevenPicture(2, 2));
        EXPECT_FALSE(subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box,
                                     s.passPreview ? &tasks.lvEditPreview : nullptr, s.runAll, s.editing));
        const std::vector<TaskRow> rows = modProcessTasks::rowsToReplay(
            tasks.lvEdit, tasks.lvEditBatch, s.passPreview ? &tasks.lvEditPreview : nullptr, s.runAll,
            s.editing);
        ImageBox replayedBox = boxWith(unevenPicture(2, 2));
        replayRows(replayedBox, rows);
        EXPECT_EQ(replayedBox.Width(), box.Width());
        EXPECT_EQ(box.Width(), 2 + s.columnsAdded) << s.list << ' ' << s.preview << ' ' << s.editing;
    }
}

TEST(Run, AFailingRowEndsItAndTheRowsBeforeItStayApplied) {
    for (const Failure& failure : failures()) {
        SCOPED_TRACE(failure.what);
        TestDesktop desktop;
        ImageBox box = boxWith(unevenPicture(9, 7));
        EXPECT_FALSE(replayAll(box, {taskRow(11, {}), failure.row, taskRow(11, {})}));
        EXPECT_TRUE(desktop.busy) << "the pointer stays";
        EXPECT_EQ(box.picture(), replayed(9, 7, {taskRow(11, {})}));
        ASSERT_EQ(desktop.reports.size(), 1u);
        const QString error = desktop.reports[0].ErrRoutine + text(": ") + desktop.reports[0].ErrSystem;
        EXPECT_TRUE(contains(error, text("subProcessPages: %1 - ").arg(failure.number)));
        EXPECT_TRUE(contains(error, text(" - task 2 (%1): ").arg(failure.row.key)));
        EXPECT_EQ(checkRow(failure.row).state == TaskCheck::State::Failed, failure.isFoundByCheck);
    }
}

TEST(Run, AnEmptyTextAndUnknownKindsChangeNothing) {
    TestDesktop desktop;
    std::vector<TaskRow> rows{textRow("4", "0", "0", "")};
    for (const int kind : {0, 16, 99, -3}) {
        rows.push_back(taskRow(kind, {}));
        EXPECT_EQ(checkRow(rows.back()).state, TaskCheck::State::Skipped);
    }
    ImageBox box = boxWith(unevenPicture(5, 3));
    replayRows(box, rows);
    EXPECT_EQ(box.picture(), unevenPicture(5, 3));
}

TEST(Run, ARowWhoseKindIsNotANumberEndsIt) {
    for (const char* kind : {"", "flip", "99999"}) {
        TaskRow row;
        row.kind = text(kind);
        ImageBox box = boxWith(unevenPicture(3, 3));
        EXPECT_THROW(replayRow(box, row, 1), TrappedError) << kind;
        EXPECT_EQ(checkRow(row).state, TaskCheck::State::Failed) << kind;
    }
}

TEST(Run, ARowTakenAwayDuringTheRunEndsItWithoutACrash) {
    TestDesktop desktop;
    TaskList tasks;
    for (int i = 0; i < 3; ++i)
        tasks.append(taskRow(11, {}));
    desktop.onYield = [&] { tasks.remove(tasks.count() - 1); };
    ImageBox box = boxWith(unevenPicture(9, 7));
    EXPECT_TRUE(subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_EQ(desktop.reports.size(), 1u);
}

TEST(Run, AStopEndsAReplayBeforeItsNextRow) {
    std::stop_source stop;
    stop.request_stop();
    ImageBox box = boxWith(unevenPicture(9, 7));
    const std::vector<TaskRow> rows{taskRow(11, {})};
    EXPECT_EQ(errorNumberOf([&] { replayRows(box, rows, stop.get_token()); }), ErrorNumber::Interrupted);
    EXPECT_EQ(box.picture(), unevenPicture(9, 7));
}
