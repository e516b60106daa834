// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "artwork/Wood.h"

namespace tarsel::artwork {

namespace {

constexpr float radius = 34; ///< of the outer corners
constexpr WoodTones tones{toneOf(112, 40, 22), toneOf(176, 82, 46), toneOf(84, 28, 16)};

/// How far inside the rounded outline a place is; negative outside.
float insideOutline(const Sheet& sheet, float x, float y) {
    const float fromSide = std::min(x, float(sheet.width()) - x),
                fromEnd = std::min(y, float(sheet.height()) - y);
    if (fromSide > radius || fromEnd > radius)
        return std::min(fromSide, fromEnd);
    return radius - std::hypot(radius - fromSide, radius - fromEnd);
}

/// How far outside the opening for the picture it is.
float outsideOpening(const Sheet& sheet, float x, float y) {
    const float beside = float(sheet.sizes.side) - std::min(x, float(sheet.width()) - x);
    const float above = float(sheet.sizes.top) - std::min(y, float(sheet.height()) - y);
    return std::min(beside, above) > 0 ? std::hypot(beside, above) : std::max(beside, above);
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const float outer = insideOutline(sheet, x, y);
    if (outer < 0) {
        Surface paper{gray(1)};
        paper.glow = 1;
        return paper;
    }
    const float inner = std::max(outsideOpening(sheet, x, y), 0.0F);
    const float across = outer / std::max(outer + inner, 0.1F);
    const float rim = step(0.90F, 0.95F, across);
    Surface surface{woodAt(sheet.spotAt(x, y), tones, 1.2F) * (1 - 0.6F * rim)};
    surface.height = 6 * dome(-0.02F, 0.94F, across);
    surface.gloss = 0.75F;
    surface.sharpness = 42;
    return surface;
}

} // namespace

Painting cherry() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
