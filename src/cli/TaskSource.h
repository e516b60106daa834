#pragma once

#include "tasks/TaskList.h"

#include <QString>

namespace tarsel::cli {

/// Reads a task list file; raises an error that names the file when it is missing or damaged.
void readTasks(const QString& path, TaskList& tasks);

/// Whether a replay of the list draws text, for which fonts must be at hand.
bool drawsText(const TaskList& tasks);

} // namespace tarsel::cli
