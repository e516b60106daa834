// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Mirrors left and right. `target` has the size of `source` or is the same view.
void flipHorizontal(ConstPixelView source, PixelView target);

/// Mirrors top and bottom. `target` has the size of `source` or is the same view.
void flipVertical(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
