// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskRow.h"

namespace tarsel {

/// What a replay would do with a row, as far as that can be known without a picture.
struct TaskCheck {
    enum class State { Ok, Skipped, Failed };
    State state = State::Ok;
    QString reason; ///< why not; of a row that is fine, a value outside the range of its control
};

TaskCheck checkRow(const TaskRow& row);

} // namespace tarsel
