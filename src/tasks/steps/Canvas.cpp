// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Edge.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: colour of the new area. p2 to p5: pixels added left, top, right, bottom.
void steps::canvas(ImageBox& box, const TaskRow& row) {
    box.BackColor = toInt32(row.column(1));
    const int left = edge(-qint64(toInt32(row.column(2))));
    const int top = edge(-qint64(toInt32(row.column(3))));
    const int right = edge(box.Width() + qint64(toInt32(row.column(4))));
    const int bottom = edge(box.Height() + qint64(toInt32(row.column(5))));
    box.Crop(left, top, right, bottom);
}

} // namespace tarsel
