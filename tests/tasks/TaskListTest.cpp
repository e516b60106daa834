// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/tasks/TaskRows.h"

#include "base/TrappedError.h"

#include <gtest/gtest.h>

#include <set>

using namespace tarsel;
using namespace tarsel::test;

namespace {

std::vector<QString> names(const ListView& list) {
    std::vector<QString> shown;
    for (int i = 0; i < list.count(); ++i)
        shown.push_back(list.row(i).text);
    return shown;
}

} // namespace

TEST(TaskKinds, NumbersRunFromOneToSixteenAndKeysAreUnique) {
    std::set<QString> panelKeys;
    int number = 0;
    for (const TaskKind& kind : taskKinds()) {
        EXPECT_EQ(kind.number, ++number);
        panelKeys.insert(QString::fromLatin1(kind.panelKey));
        EXPECT_EQ(kind.replay != nullptr, kind.number != 16);
        if (kind.number != 16) {
            EXPECT_EQ(QString::fromLatin1(kind.rowKey), QString::fromLatin1(kind.panelKey).toLower());
        }
    }
    EXPECT_EQ(panelKeys.size(), 16u);
}

TEST(TaskKinds, OnlyOneToFifteenHaveADisplayName) {
    EXPECT_EQ(taskDisplayName(1), QStringLiteral("Orientation"));
    EXPECT_EQ(taskDisplayName(11), QStringLiteral("Negative"));
    EXPECT_EQ(taskDisplayName(15), QStringLiteral("Shadow"));
    for (const int other : {-1, 0, 16, 17, 99})
        EXPECT_EQ(taskDisplayName(other), QString()) << other;
}

TEST(TaskList, TheThreeListsStayInStepThroughAppendAndRemove) {
    TaskList tasks;
    tasks.append(taskRow(1, {"0"}));
    tasks.append(taskRow(3, {"False", "50", ""}));
    tasks.append(taskRow(1, {"1"}));
    tasks.append(taskRow(11, {}));
    tasks.remove(1);
    tasks.remove(-1);
    const std::vector<QString> expected{QStringLiteral("Orientation"), QStringLiteral("Orientation"),
                                        QStringLiteral("Negative")};
    EXPECT_EQ(names(tasks.lvEdit), expected);
    EXPECT_EQ(names(tasks.lvEditPreview), expected);
    ASSERT_EQ(tasks.count(), 3);
    EXPECT_EQ(tasks.row(0), taskRow(1, {"0"}));
    EXPECT_EQ(tasks.row(1), taskRow(1, {"1"}));
    EXPECT_EQ(tasks.row(2), taskRow(11, {}));
    tasks.clear();
    EXPECT_EQ(tasks.count() + tasks.lvEdit.count() + tasks.lvEditPreview.count(), 0);
}

TEST(TaskList, AppendingMovesNoSelectionAndTakesNeitherRedEyeCorrectionNorAKindThatIsNoNumber) {
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
    EXPECT_EQ(tasks.lvEdit.count(), 2);
    EXPECT_EQ(tasks.lvEditPreview.count(), 2);
}
