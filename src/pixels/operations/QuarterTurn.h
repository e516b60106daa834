// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Turns by 90 degrees clockwise or counter-clockwise. `target` is as wide as `source` is high and the other
/// way round, and shares no pixels with it.
void quarterTurn(ConstPixelView source, PixelView target, bool clockwise);

} // namespace tarsel::operations
