// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

namespace tarsel::operations {

/// Largest factor of areaReduction, on either axis.
constexpr int largestAreaFactor = 256;

/// Reduces by integer factors: each pixel of `target` is the rounded mean of the acrossFactor x downFactor
/// pixels of `source` that it covers, which is exact. `source` has at least target.width * acrossFactor
/// columns and target.height * downFactor rows; what is beyond these is left out. Channels are averaged on
/// their own, alpha too; with `premultiplySource` colours are multiplied by their alpha first, and stay so.
void areaReduction(ConstPixelView source, PixelView target, int acrossFactor, int downFactor,
                   bool premultiplySource = false);

} // namespace tarsel::operations
