// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::sharpen(ImageBox& box, const TaskRow& row) {
    box.Sharpen(row[column::Sharpen::level]);
}

} // namespace tarsel
