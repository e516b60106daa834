// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

/// Squares that close towards the edge. Each is a block of a JPEG file, of one gray: black stays black.
MaskTone mosaic() {
    return [](float x, float y) {
        constexpr int side = 8;
        const auto column = std::int32_t(x) / side, row = std::int32_t(y) / side;
        const float middleX = float(column * side) + side / 2.0F, middleY = float(row * side) + side / 2.0F;
        const float inside = -fromRectangle(middleX, middleY, 0, 0, 40);
        const float covered = 1 - step(18, 108, inside);
        return samples::chance(column, row, 61) < covered ? darkGray : 0.0F;
    };
}

} // namespace tarsel::artwork
