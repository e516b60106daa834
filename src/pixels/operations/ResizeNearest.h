// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Each pixel of `target` is the pixel of `source` under its centre. Any sizes; both have the same
/// number of channels and share no pixels.
void resizeNearest(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
