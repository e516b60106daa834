// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: level, 1 to 10.
void steps::blur(ImageBox& box, const TaskRow& row) {
    box.Blur(toInt32(row.column(1)));
}

} // namespace tarsel
