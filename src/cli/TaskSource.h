// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"

namespace tarsel::cli {

/// Whether a replay of the list draws text, which needs fonts.
bool drawsText(const TaskList& tasks);

} // namespace tarsel::cli
