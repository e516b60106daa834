// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TaskSource.h"

#include "base/Conversions.h"
#include "cli/ApplicationScope.h"
#include "cli/FilePaths.h"
#include "tasks/TaskFile.h"
#include "tasks/modProcessTasks.h"

#include <string_view>

namespace tarsel::cli {

namespace {

/// Whether a replay of the list draws text.
bool drawsText(const TaskList& tasks) {
    for (int i = 0; i < tasks.count(); ++i)
        if (const TaskKind* kind = taskKind(toInt16(tasks.row(i).kind));
            kind && std::string_view(kind->rowKey) == "text")
            return true;
    return false;
}

} // namespace

void readTasks(const Arguments& arguments, TaskList& tasks) {
    if (arguments.has("tasks"))
        modSaveOpenImageList::readTaskBasket(filePath(arguments.value("tasks")), tasks);
    if (drawsText(tasks))
        ApplicationScope::provideFonts();
}

std::vector<TaskRow> allTasks(const TaskList& tasks) {
    return modProcessTasks::rowsToReplay(tasks.lvEdit, tasks.lvEditBatch, nullptr, true);
}

} // namespace tarsel::cli
