// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/modProcessTasks.h"
#include "tasks/steps/Edge.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::frame(ImageBox& box, const TaskRow& row) {
    using column::Frame;
    constexpr int framedByStrips = 4;
    box.MergeTransparent = false;
    box.MergeTransparency = 0;
    box.BackColor = row[Frame::backColor];
    if (row[Frame::plain] == 0) {
        const int number = row[Frame::number];
        return modProcessTasks::subPaintFrame(box, number, row[Frame::resizeCanvas],
                                              number == framedByStrips);
    }
    const qint64 width = row[Frame::width];
    box.Crop(edge(-width), edge(-width), edge(box.Width() + width), edge(box.Height() + width));
}

} // namespace tarsel
