// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/modProcessTasks.h"

#include "base/Conversions.h"
#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "tasks/TaskList.h"

namespace tarsel {

namespace {

void replay(ImageBox& box, const TaskRow& row) {
    const TaskKind* kind = taskKind(toInt16(row.kind));
    if (kind && kind->replay)
        kind->replay(box, row);
}

/// Replays one row. Its error names the row and its kind.
void replayRow(ImageBox& box, const TaskRow& row, int number) {
    try {
        replay(box, row);
    } catch (TrappedError& error) {
        const QString key = row.key.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(row.key);
        error.description = QStringLiteral("task %1%2: %3").arg(number).arg(key, error.description);
        throw;
    }
}

} // namespace

bool modProcessTasks::subProcessPages(const ListView& list, const ListView& rows, ImageBox& box,
                                      const ListView* previewList, bool runAll, bool editing) {
    return trap("subProcessPages", [&] {
        const int count = rows.count();
        if (count == 0)
            return;
        // A failing step leaves the busy pointer on: whoever sets it next puts it right.
        desktop().setBusyPointer(true);
        for (int index = 0; index < count; ++index) {
            desktop().yield();
            replayRow(box, taskRowOf(rows, index), index + 1);
            const ListView& selecting = editing && previewList ? *previewList : list;
            if (!runAll && selecting.selectedIndex() == index)
                break;
        }
        desktop().setBusyPointer(false);
    });
}

} // namespace tarsel
