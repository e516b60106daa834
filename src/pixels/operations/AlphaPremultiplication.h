// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Filters mix neighbours, and the colour of a transparent pixel must not shine into what can be seen. So
/// they work on colours multiplied by alpha / 255, and divide afterwards. Both are exact where alpha is 255.

/// True when some pixel of a 4-channel view is not opaque.
bool hasTransparency(ConstPixelView view);

/// `target` has the size of `source` or is the same view; both have 4 channels.
void premultiply(ConstPixelView source, PixelView target);
void unpremultiply(PixelView view);

} // namespace tarsel::operations
