// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "pixels/operations/LanczosKernel.h"

namespace tarsel::operations {

/// Makes each pixel of `target` the sum of the pixels of `source` that `columns` and `rows` weight. Channels
/// are worked on alike. The two share no pixels.
void separableFilter(ConstPixelView source, PixelView target, const AxisWeights& columns,
                     const AxisWeights& rows);

} // namespace tarsel::operations
