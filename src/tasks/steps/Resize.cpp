// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: to a size, p2 by p3 pixels; else by p2 percent, replayed in whole percents (12.5 as 12).
void steps::resize(ImageBox& box, const TaskRow& row) {
    if (toBool(row.column(1)))
        box.ResizeTo(toInt32(row.column(2)), toInt32(row.column(3)));
    else
        box.Scale(float(toInt16(row.column(2))));
}

} // namespace tarsel
