// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Arguments.h"
#include "tasks/TaskList.h"

namespace tarsel::cli {

/// Reads the list of --tasks, where it is given, and provides the fonts that a list with a text needs.
void readTasks(const Arguments& arguments, TaskList& tasks);

/// All of them, to be replayed on each picture.
std::vector<TaskRow> allTasks(const TaskList& tasks);

} // namespace tarsel::cli
