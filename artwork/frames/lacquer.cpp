// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"

namespace tarsel::artwork {

namespace {

/// Black lacquer with a gold line and a gold lip.
Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const float line = band(0.615F, 0.675F, 0.012F, spot.across);
    const float lip = band(0.88F, 0.955F, 0.012F, spot.across);
    const float gold = std::max(line, lip);
    Surface surface{mixed(toneOf(30, 29, 32), toneOf(206, 164, 84), gold)};
    surface.height = 5.5F * dome(-0.02F, 0.62F, spot.across) + 1.0F * dome(0.60F, 0.69F, spot.across) +
                     2.2F * dome(0.66F, 0.90F, spot.across) + 1.2F * dome(0.87F, 0.965F, spot.across);
    surface.gloss = 0.75F;
    surface.sharpness = 34;
    surface.shine = mixed(toneOf(226, 232, 244), toneOf(255, 226, 150), gold);
    return surface;
}

} // namespace

Painting lacquer() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
