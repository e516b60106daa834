// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Edges in pixels of the picture; right and bottom are the first pixel outside. Parts may be outside the
/// picture.
struct EyeRegion {
    int left;
    int top;
    int right;
    int bottom;
    bool isEllipse; ///< touches the four edges; a pixel belongs to it by its centre
};

/// Takes the red cast from the region. With m the mean and h the higher of green and blue, red moves towards
/// m by s = (2 red - 3 h) / h, limited to 0 to 1: pixels with red up to 1.5 h stay (skin has about 1.4),
/// those with 2 h and more become neutral. Green, blue and alpha stay, so that the highlight in the eye does
/// too.
void correctRedEye(PixelView target, const EyeRegion& region);

} // namespace tarsel::operations
