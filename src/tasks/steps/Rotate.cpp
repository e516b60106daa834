// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: smooth. p2: angle, replayed in whole degrees. p3: colour of the new area.
void steps::rotate(ImageBox& box, const TaskRow& row) {
    box.BackColor = toInt32(row.column(3));
    box.Resample = toBool(row.column(1));
    box.Rotate(float(toInt16(row.column(2))));
}

} // namespace tarsel
