// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel::operations {

/// Fills `target` with the part of `source` whose corner is (left, top), which may be outside; what is
/// beyond the source takes `background`. Both have the same number of channels and share no pixels.
void crop(ConstPixelView source, PixelView target, int left, int top, Rgb background);

} // namespace tarsel::operations
