// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::blur(ImageBox& box, const TaskRow& row) {
    box.Blur(row[column::Blur::level]);
}

} // namespace tarsel
