// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"

namespace tarsel::artwork {

namespace {

/// Two half circles on a square that stands on a corner; the size of that corner's diagonal is 1, its lowest
/// point the origin, y upwards. Distance from the outline, negative inside.
float fromHeart(float x, float y) {
    const float side = std::fabs(x);
    if (side + y > 1)
        return std::hypot(side - 0.25F, y - 0.75F) - std::sqrt(2.0F) / 4;
    const float half = std::max(side + y, 0.0F) / 2;
    const float distance = std::min(std::hypot(side, y - 1), std::hypot(side - half, y - half));
    return side < y ? -distance : distance;
}

/// Somewhat wider than high, in pixels.
float distanceAt(float x, float y) {
    constexpr float size = 486, width = 1.14F;
    return size * fromHeart((x - maskWidth / 2.0F) / (size * width), (572 - y) / size);
}

} // namespace

/// White paper with a window like a heart, and the soft shadow of the picture on it.
MaskTone heart() {
    return [](float x, float y) {
        const float distance = distanceAt(x, y);
        if (distance < 0)
            return 0.0F;
        const float shade = 1 - step(-4, 22, distanceAt(x - 7, y - 8));
        return hemmed(1 - 0.45F * shade * shade, distance);
    };
}

} // namespace tarsel::artwork
