#pragma once

#include "imaging/Color.h"
#include "imaging/Picture.h"

namespace tarsel::operations {

/// Makes `count` pixels from `pixel` on the colour, opaque.
void fillPixels(std::uint8_t* pixel, int count, int channels, Rgb color);

/// Makes the whole view the colour, opaque.
void fill(PixelView target, Rgb color);

} // namespace tarsel::operations
