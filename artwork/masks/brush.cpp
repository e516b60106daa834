// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

constexpr int strokes = 7;

/// Whether a stroke of a broad brush, from left to right, reaches a place. Its bristles run dry at the ends.
bool isPainted(int stroke, float x, float y) {
    samples::Dice dice(std::uint32_t(stroke) + 80);
    const float middle =
        62 + float(stroke) * 79 + dice.between(-8, 8) + 16 * (x / maskWidth - 0.5F) * dice.between(-1, 1);
    const float start = dice.between(28, 84), end = maskWidth - dice.between(28, 84);
    const float half = dice.between(44, 54);
    const float v = (y - middle) / half;
    if (std::fabs(v + 0.06F * samples::fractal(x * 0.02F, float(stroke), 2, 90)) > 1)
        return false;
    const float bristle = samples::fractal(x * 0.006F, y * 0.33F, 3, std::uint32_t(stroke) + 91);
    const float fromEnd = std::min(x - start, end - x) + 46 * (bristle - 0.5F) - 26 * v * v;
    const float dryness = 0.86F - 0.40F * (1 - step(0, 170, end - x));
    return fromEnd > 0 && samples::fractal(x * 0.009F, y * 0.45F, 3, std::uint32_t(stroke) + 99) < dryness;
}

} // namespace

/// The picture laid on black with a brush.
MaskTone brush() {
    return [](float x, float y) {
        for (int stroke = 0; stroke < strokes; ++stroke)
            if (isPainted(stroke, x, y))
                return 0.0F;
        return darkGray;
    };
}

} // namespace tarsel::artwork
