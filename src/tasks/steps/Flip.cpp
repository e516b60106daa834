// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// "0" mirrors left and right, any other text top and bottom.
void steps::flip(ImageBox& box, const TaskRow& row) {
    box.Flip(row[column::Flip::direction] == QLatin1String("0") ? 0 : 1);
}

} // namespace tarsel
