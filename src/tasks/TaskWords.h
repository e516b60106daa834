// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/TaskColumns.h"

#include <vector>

namespace tarsel {

/// The columns that a replay of the row reads; none of an unknown kind.
std::vector<TaskColumn> columnsRead(const TaskRow& row);

/// "backColor" as "back color". Names of columns and their values are not translated, as those of options.
QString nameInWords(const TaskColumn& column);

/// The parameters that a replay of the row reads: "smooth on, degrees 90, back color #FF8000".
QString parametersInWords(const TaskRow& row);

} // namespace tarsel
