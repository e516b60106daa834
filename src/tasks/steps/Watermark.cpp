// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Conversions.h"
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

/// p1: transparent colour on. p2: transparency in percent. p3: merge style. p4: path of the picture laid
/// over. p5: transparent colour. p6: y and p7: x on the display, for the style at a place.
void steps::watermark(ImageBox& box, const TaskRow& row) {
    constexpr int AtPlace = 1;
    box.MergeTransparent = toBool(row.column(1));
    box.MergeTransparency = toInt16(row.column(2));
    box.MergeStyle = toInt16(row.column(3));
    if (box.MergeStyle == AtPlace) {
        const int x = roundToInt(horizontalScale(box) * toDouble(row.column(7)));
        const int y = roundToInt(verticalScale(box) * toDouble(row.column(6)));
        box.MergeY = y;
        box.MergeX = x;
    }
    if (box.MergeTransparent)
        box.MergeTransparentColor = toInt32(row.column(5));
    box.MergeFile(row.column(4));
}

} // namespace tarsel
