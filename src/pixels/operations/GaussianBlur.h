// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Gaussian blur with a standard deviation of level / 2 pixels, cut off at three deviations. `level` runs
/// from 1 to 10; levels beyond count as the nearest of these. At the edges the outermost pixels repeat; alpha
/// is blurred with the colours. `target` has the size of `source` or is the same view.
void gaussianBlur(ConstPixelView source, PixelView target, int level);

} // namespace tarsel::operations
