// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Edge.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::frame(ImageBox& box, const TaskRow& row) {
    using column::Frame;
    box.MergeTransparent = false;
    box.MergeTransparency = 0;
    box.BackColor = row[Frame::backColor];
    if (row[Frame::plain] == 0)
        return missingArtwork(box, row);
    const qint64 width = row[Frame::width];
    box.Crop(edge(-width), edge(-width), edge(box.Width() + width), edge(box.Height() + width));
}

} // namespace tarsel
