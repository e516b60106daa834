// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/steps/Edge.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: colour. p2: not 0 for a plain frame of that colour, p3 pixels wide; 0 for a frame of images.
void steps::frame(ImageBox& box, const TaskRow& row) {
    box.MergeTransparent = false;
    box.MergeTransparency = 0;
    box.BackColor = toInt32(row.column(1));
    if (toByte(row.column(2)) == 0)
        return missingArtwork(box, row);
    const qint64 width = toInt32(row.column(3));
    box.Crop(edge(-width), edge(-width), edge(box.Width() + width), edge(box.Height() + width));
}

} // namespace tarsel
