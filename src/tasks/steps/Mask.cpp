// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"
#include "tasks/TaskColumns.h"
#include "tasks/frmFrameDummy.h"
#include "tasks/steps/Steps.h"

namespace tarsel {

namespace {

/// What an interactive preview lays over the picture: the mask at the picture's size.
void mergeFitted(ImageBox& box, const Picture& mask) {
    ImageBox resized;
    resized.setPictureHandle(mask);
    resized.Resize(box.Width(), box.Height());
    box.MergeHandle(resized.pictureHandle());
}

/// What a replay lays over it: a mask that shares a dimension with the picture keeps its size.
void mergeUnlessOneSideFits(ImageBox& box, const Picture& mask) {
    const Picture& first = frmFrameDummy::mask(0);
    if (first.width() != box.Width() && first.height() != box.Height())
        mergeFitted(box, mask);
    else
        box.MergeHandle(mask);
}

void applyMask(ImageBox& box, const TaskRow& row, void (*mergeMask)(ImageBox&, const Picture&)) {
    using column::Mask;
    constexpr Color black = 0;
    constexpr int softening = 2;
    box.MergeTransparentColor = black;
    box.MergeTransparent = row[Mask::transparent];
    box.MergeTransparency = row[Mask::transparency];
    box.MergeStyle = 1;
    box.MergeX = 0;
    box.MergeY = 0;
    mergeMask(box, frmFrameDummy::mask(row[Mask::number]));
    if (box.MergeTransparent)
        box.Blur(softening);
}

} // namespace

void steps::mask(ImageBox& box, const TaskRow& row) {
    applyMask(box, row, mergeUnlessOneSideFits);
}

void steps::maskInPreview(ImageBox& box, const TaskRow& row) {
    applyMask(box, row, mergeFitted);
}

} // namespace tarsel
