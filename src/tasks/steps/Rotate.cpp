// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// The angle is replayed in integer degrees.
void steps::rotate(ImageBox& box, const TaskRow& row) {
    using column::Rotate;
    box.BackColor = row[Rotate::backColor];
    box.Resample = row[Rotate::smooth];
    box.Rotate(float(row[Rotate::degrees]));
}

} // namespace tarsel
