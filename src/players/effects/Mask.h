// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"

namespace tarsel::players {

/// How much of each pixel something covers, 0 to 255. `left` and `top` are where it begins relative to a
/// point.
struct Mask {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> coverage;

    std::uint8_t* row(int y) { return coverage.data() + std::ptrdiff_t(y) * width; }
    const std::uint8_t* row(int y) const { return coverage.data() + std::ptrdiff_t(y) * width; }
};

/// Mixes the colour in where the mask covers, with its point at x and y; y may be between two rows of pixels.
/// What is outside the canvas is left out.
void drawMask(const Canvas& canvas, const Mask& mask, int x, double y, std::uint32_t color,
              double opacity = 1);

/// Softened by that many pixels, and larger by them on each side.
Mask blurred(const Mask& mask, int radius);
/// With a tail of `length` pixels above it that fades out.
Mask withTrail(const Mask& mask, int length, double strength);

} // namespace tarsel::players
