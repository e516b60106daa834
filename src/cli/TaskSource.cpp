#include "cli/TaskSource.h"

#include "base/Conversions.h"
#include "base/ErrorTrap.h"
#include "collections/clsFileInfo.h"
#include "tasks/TaskFile.h"

#include <string_view>

namespace tarsel::cli {

void readTasks(const QString& path, TaskList& tasks) {
    if (!clsFileInfo::CheckIfFileExists(path))
        fail(ErrorNumber::FileNotFound, path);
    if (!modSaveOpenImageList::fncOpenTaskBasket(path, tasks))
        fail(ErrorNumber::InvalidCall, QStringLiteral("%1: no readable task list").arg(path));
}

bool drawsText(const TaskList& tasks) {
    for (int i = 0; i < tasks.count(); ++i)
        if (const TaskKind* kind = taskKind(toInt16(tasks.row(i).kind));
            kind && std::string_view(kind->rowKey) == "text")
            return true;
    return false;
}

} // namespace tarsel::cli
