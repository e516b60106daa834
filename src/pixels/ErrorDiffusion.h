// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/IndexedPicture.h"
#include "pixels/Picture.h"

namespace tarsel {

/// Gives each pixel of a picture of 3 channels the nearest colour of the target's palette, and spreads what
/// is missing over the neighbours that follow (R. Floyd, L. Steinberg, "An adaptive algorithm for spatial
/// grey scale", 1976), in rows that alternate their direction.
void diffuseColors(ConstPixelView source, IndexedPicture& target);

/// The same by the luma of the pixels. The first `levels` colours of the palette are even steps of gray.
void diffuseGray(ConstPixelView source, IndexedPicture& target, int levels);

} // namespace tarsel
