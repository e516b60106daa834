// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "pixels/operations/ColorChannels.h"

namespace tarsel::operations {

/// Adds (level - 50) * 255 / 50, rounded, to the chosen channels; results end at 0 and 255. `level` runs from
/// 0 (black) over 50 (unchanged) to 100 (white); levels beyond count as the nearest of these. `target` has
/// the size of `source` or is the same view.
void brightness(ConstPixelView source, PixelView target, int level, const ColorChannels& channels);

} // namespace tarsel::operations
