// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Edge.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::canvas(ImageBox& box, const TaskRow& row) {
    using column::Canvas;
    box.BackColor = row[Canvas::backColor];
    const int left = edge(-qint64(row[Canvas::left]));
    const int top = edge(-qint64(row[Canvas::top]));
    const int right = edge(box.Width() + qint64(row[Canvas::right]));
    const int bottom = edge(box.Height() + qint64(row[Canvas::bottom]));
    box.Crop(left, top, right, bottom);
}

} // namespace tarsel
