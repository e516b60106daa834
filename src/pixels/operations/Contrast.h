// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "pixels/operations/ColorChannels.h"

namespace tarsel::operations {

/// Stretches the chosen channels about the middle: 127.5 + (value - 127.5) * f, rounded and ended at 0 and
/// 255. f is level / 50 up to level 50 (0: all middle gray, 50: unchanged) and 50 / (100 - level) above (75:
/// twice the contrast, 100: each value becomes 0 or 255). Levels beyond count as 0 or 100. `target` has the
/// size of `source` or is the same view.
void contrast(ConstPixelView source, PixelView target, int level, const ColorChannels& channels);

} // namespace tarsel::operations
