// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/TaskSource.h"

#include "base/Conversions.h"

#include <string_view>

namespace tarsel::cli {

bool drawsText(const TaskList& tasks) {
    for (int i = 0; i < tasks.count(); ++i)
        if (const TaskKind* kind = taskKind(toInt16(tasks.row(i).kind));
            kind && std::string_view(kind->rowKey) == "text")
            return true;
    return false;
}

} // namespace tarsel::cli
