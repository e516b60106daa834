// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

void steps::watermark(ImageBox& box, const TaskRow& row) {
    using column::Watermark;
    constexpr int atPlace = 1;
    box.MergeTransparent = row[Watermark::transparent];
    box.MergeTransparency = row[Watermark::transparency];
    box.MergeStyle = row[Watermark::style];
    if (box.MergeStyle == atPlace) {
        const int x = roundToInt(horizontalScale(box) * row[Watermark::x]);
        const int y = roundToInt(verticalScale(box) * row[Watermark::y]);
        box.MergeY = y;
        box.MergeX = x;
    }
    if (box.MergeTransparent)
        box.MergeTransparentColor = row[Watermark::transparentColor];
    box.MergeFile(row[Watermark::path]);
}

} // namespace tarsel
