// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: level, 0 to 100. p2, p3, p4: red, green, blue take part.
void steps::contrast(ImageBox& box, const TaskRow& row) {
    box.Contrast(toInt32(row.column(1)), toBool(row.column(2)), toBool(row.column(3)), toBool(row.column(4)));
}

} // namespace tarsel
