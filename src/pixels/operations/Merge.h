// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <optional>

namespace tarsel::operations {

/// Where a merged picture is placed. The numbers are those of ImageBox::MergeStyle.
enum class MergePlace {
    Centred = 0,
    At = 1,      ///< top left corner at (x, y), cut off at the edges
    Tiled = 2,   ///< side by side from the top left corner on, cut off at the edges
    Wrapped = 3, ///< stretched or shrunk smoothly until it covers all of the picture
};

struct MergeOptions {
    MergePlace place = MergePlace::Centred;
    int x = 0;
    int y = 0;
    std::optional<Rgb> transparentColor; ///< pixels of just this colour are not laid down
    double transparency = 0;             ///< percent; 0 is fully opaque, 100 lays nothing down
};

/// Lays `layer` over `target`, which keeps its size. A pixel is mixed by the layer's own alpha times
/// (100 - transparency) / 100, in 1/255; fully opaque pixels are copied exactly. The two share no pixels.
void merge(PixelView target, ConstPixelView layer, const MergeOptions& options);

} // namespace tarsel::operations
