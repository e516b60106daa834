// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/modProcessTasks.h"

#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "tasks/Replay.h"

namespace tarsel {

namespace {

/// Whether a run that isn't of all rows ends after this one.
bool isSelected(int index, const ListView& list, const ListView* previewList, bool editing) {
    const ListView& selecting = editing && previewList ? *previewList : list;
    return selecting.selectedIndex() == index;
}

} // namespace

std::vector<TaskRow> modProcessTasks::rowsToReplay(const ListView& list, const ListView& rows,
                                                   const ListView* previewList, bool runAll, bool editing) {
    std::vector<TaskRow> replayed;
    for (int index = 0; index < rows.count(); ++index) {
        replayed.push_back(taskRowOf(rows, index));
        if (!runAll && isSelected(index, list, previewList, editing))
            break;
    }
    return replayed;
}

std::optional<ErrorReport> modProcessTasks::subProcessPages(const ListView& list, const ListView& rows,
                                                            ImageBox& box, const ListView* previewList,
                                                            bool runAll, bool editing) {
    return trap("subProcessPages", [&] {
        const int count = rows.count();
        if (count == 0)
            return;
        // A failing step leaves the busy pointer on: whoever sets it next puts it right.
        service<EventLoop>().setBusyPointer(true);
        for (int index = 0; index < count; ++index) {
            service<EventLoop>().yield();
            replayRow(box, taskRowOf(rows, index), index + 1);
            if (!runAll && isSelected(index, list, previewList, editing))
                break;
        }
        service<EventLoop>().setBusyPointer(false);
    });
}

} // namespace tarsel
