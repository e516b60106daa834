#pragma once

#include "imaging/Picture.h"

namespace tarsel::operations {

/// Mirrors left and right. `target` has the size of `source` or is the same view.
void flipHorizontal(ConstPixelView source, PixelView target);

/// Mirrors top and bottom. `target` has the size of `source` or is the same view.
void flipVertical(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
