// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Filters mix neighbours, and the colour of a transparent pixel must not shine into visible ones. So they
/// work on colours multiplied by alpha / 255, and divide afterwards. Both are exact where alpha is 255.

/// True when the view has 4 channels and some pixel is not opaque.
bool hasTransparency(ConstPixelView view);

/// `count` pixels of 4 bytes each; `out` may be `in`.
void premultiplyPixels(const std::uint8_t* in, std::uint8_t* out, int count);
void unpremultiplyPixels(std::uint8_t* pixels, int count);

/// `target` has the size of `source` or is the same view; both have 4 channels.
void premultiply(ConstPixelView source, PixelView target);

} // namespace tarsel::operations
