// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tasks/TaskRows.h"

#include "base/TrappedError.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

TEST(TaskList, TheThreeListsStayInStepThroughAppendAndRemove) {
    TaskList tasks;
    for (const TaskRow& row :
         {taskRow(1, {"0"}), taskRow(3, {"False", "50"}), taskRow(1, {"1"}), taskRow(11, {})})
        tasks.append(row);
    tasks.remove(1);
    tasks.remove(-1);
    ASSERT_EQ(tasks.count(), 3);
    const TaskRow expected[] = {taskRow(1, {"0"}), taskRow(1, {"1"}), taskRow(11, {})};
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(tasks.row(i), expected[i]);
        EXPECT_EQ(tasks.lvEdit.row(i).text, taskDisplayName(i < 2 ? 1 : 11));
        EXPECT_EQ(tasks.lvEditPreview.row(i).text, tasks.lvEdit.row(i).text);
    }
    tasks.clear();
    EXPECT_EQ(tasks.count() + tasks.lvEdit.count() + tasks.lvEditPreview.count(), 0);
}

TEST(TaskList, AppendingMovesNoSelectionAndTakesNeitherRedEyeCorrectionNorAKindThatIsNotANumber) {
    TaskList tasks;
    tasks.append(taskRow(11, {}));
    tasks.lvEdit.selectOnly(0);
    tasks.append(taskRow(1, {"0"}));
    EXPECT_EQ(tasks.lvEdit.selectedIndex(), 0);
    EXPECT_EQ(tasks.lvEditPreview.selectedIndex(), -1);
    tasks.append(taskRow(16, {}));
    TaskRow row = taskRow(1, {"0"});
    row.kind = QStringLiteral("flip");
    EXPECT_THROW(tasks.append(row), TrappedError);
    EXPECT_EQ(tasks.count(), 2);
}
