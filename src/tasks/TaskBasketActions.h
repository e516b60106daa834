// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskList.h"

namespace tarsel::taskBasketActions {

/// Runs button `index` of the task basket: 0 new, 1 open, 2 save, 3 remove. True when the rows changed and
/// the picture on show has to be made again. The list beside the preview says which row is selected while the
/// user is `editing`.
bool cmdEditBar(int index, TaskList& tasks, bool editing);

} // namespace tarsel::taskBasketActions
