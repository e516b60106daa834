// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"
#include "pixels/operations/AxisWeights.h"

namespace tarsel::operations {

/// How a filter treats the alpha of its two pictures.
struct AlphaHandling {
    bool premultiplySource = false;   ///< colours are multiplied by their alpha before they are mixed
    bool unpremultiplyTarget = false; ///< results are divided by theirs
};

/// Makes each pixel of `target` the sum of the pixels of `source` that `columns` and `rows` weight. The two
/// have the same number of channels, 4 if `alpha` asks for anything, and share no pixels.
void separableFilter(ConstPixelView source, PixelView target, const AxisWeights& columns,
                     const AxisWeights& rows, AlphaHandling alpha);

} // namespace tarsel::operations
