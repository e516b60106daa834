// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Resamples to the size of `target` without aliasing, by a separable Lanczos filter of three lobes, widened
/// by the factor of a reduction. Reductions to less than a twelfth take means of groups of pixels first. Any
/// sizes; both have the same number of channels and share no pixels. Beyond the edges, the outermost pixels
/// repeat.
void resizeSmooth(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
