// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

namespace tarsel::operations {

/// Makes `count` pixels from `pixel` on the colour, opaque.
void fillPixels(std::uint8_t* pixel, int count, int channels, Rgb color);

/// Fills the view with the colour, opaque.
void fill(PixelView target, Rgb color);

} // namespace tarsel::operations
