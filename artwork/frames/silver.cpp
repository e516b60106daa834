// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

/// A brushed bar with two bevels.
Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const float brushed = repeated(spot.along, spot.period, [&](float along) {
        return samples::fractal(along * 0.05F, spot.depth * 1.9F, 2, std::uint32_t(spot.side) + 3);
    });
    const float groove = band(0.66F, 0.70F, 0.012F, spot.across) + step(0.94F, 0.97F, spot.across);
    Surface surface{gray(0.70F + 0.14F * brushed) * toneOf(250, 252, 255) *
                    (1 - 0.5F * std::min(groove, 1.0F))};
    surface.height = 4.5F * step(0, 0.20F, spot.across) + 1.3F * dome(0.05F, 0.68F, spot.across) -
                     3.6F * step(0.70F, 0.98F, spot.across);
    surface.gloss = 0.30F;
    surface.sharpness = 30;
    return surface;
}

} // namespace

Painting silver() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
