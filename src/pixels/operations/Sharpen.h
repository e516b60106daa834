// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Adds to each value 0.3 * level times its distance from the 3x3 mean of weights 1 2 1, 2 4 2, 1 2 1, and
/// ends the result at 0 and 255. In the mean colours count by their alpha. `level` runs from 1 to 10; levels
/// beyond count as the nearest of these. At the edges the outermost pixels repeat; alpha stays. `target` has
/// the size of `source` or is the same view.
void sharpen(ConstPixelView source, PixelView target, int level);

} // namespace tarsel::operations
