// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/DisplayScale.h"
#include "tasks/TaskColumns.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

namespace {

constexpr int atPlace = 1; ///< a merge style

} // namespace

using column::Watermark;

void steps::mergeAt(ImageBox& box, const TaskRow& row, QPoint place) {
    box.MergeTransparent = row[Watermark::transparent];
    box.MergeTransparency = row[Watermark::transparency];
    box.MergeStyle = row[Watermark::style];
    if (box.MergeStyle == atPlace) {
        box.MergeY = place.y();
        box.MergeX = place.x();
    }
    if (box.MergeTransparent)
        box.MergeTransparentColor = row[Watermark::transparentColor];
    box.MergeFile(row[Watermark::path]);
}

void steps::watermark(ImageBox& box, const TaskRow& row) {
    QPoint place;
    if (row[Watermark::style] == atPlace)
        place = {roundToInt(horizontalScale(box) * row[Watermark::x]),
                 roundToInt(verticalScale(box) * row[Watermark::y])};
    mergeAt(box, row, place);
}

} // namespace tarsel
