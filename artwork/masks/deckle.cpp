// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

/// The waves of the cut: regular, but for the hand that led it.
float cut(float x, float y) {
    constexpr float turn = 6.2831853F;
    const bool alongTop = std::fabs(y / maskHeight - 0.5F) > std::fabs(x / maskWidth - 0.5F);
    const float along = alongTop ? x / maskWidth * 50 : y / maskHeight * 38;
    return 3.2F * std::fabs(std::sin(turn * along / 2)) +
           1.6F * samples::fractal(x * 0.12F, y * 0.12F, 2, 70);
}

} // namespace

/// An old print with a white border and a deckled edge, on gray board.
MaskTone deckle() {
    return [](float x, float y) {
        const float distance = fromRectangle(x, y, 54, 54, 0);
        if (distance < 0)
            return 0.0F;
        if (fromRectangle(x, y, 22, 22, 0) + cut(x, y) < 0)
            return hemmed(0.975F, distance);
        const float shadow = fromRectangle(x - 4, y - 5, 25, 25, 6);
        return 0.62F - 0.30F * (1 - step(-4, 15, shadow));
    };
}

} // namespace tarsel::artwork
