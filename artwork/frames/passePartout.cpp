// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "artwork/Wood.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

constexpr float woodEnd = 7, bevelStart = 2.8F; ///< pixels from the outer and the inner edge
constexpr WoodTones tones{toneOf(38, 27, 22), toneOf(74, 54, 42), toneOf(24, 17, 14)};

/// Threads of a linen board. Their number in a repeated piece is an integer.
float linen(const Spot& spot) {
    constexpr float turn = 6.2831853F, pitch = 2.4F;
    const float threads = std::round(spot.period / pitch);
    const float weave =
        std::sin(turn * spot.along * threads / spot.period) * std::sin(turn * spot.depth / pitch);
    const float slub = repeated(spot.along, spot.period, [&](float along) {
        return samples::fractal(along * 0.09F, spot.depth * 1.1F, 2, 21);
    });
    return 0.022F * weave + 0.045F * (slub - 0.5F);
}

Surface woodAround(const Spot& spot) {
    Surface surface{woodAt(spot, tones, 1.6F), 6 + 3 * dome(-1, woodEnd, spot.depth)};
    surface.gloss = 0.25F;
    return surface;
}

/// Ivory board below the wood, a fine line, and the white core of the board cut at a slant.
Surface board(const Spot& spot, float fromPicture) {
    const float shaded = 0.30F * (1 - step(woodEnd, woodEnd + 4.5F, spot.depth));
    const float line = 0.38F * band(7.4F, 8.1F, 0.25F, fromPicture);
    const float core = 1 - step(bevelStart - 0.2F, bevelStart + 0.2F, fromPicture);
    const Tone ivory = toneOf(240, 233, 217) * (1 + linen(spot));
    Surface surface{
        mixed(mixed(ivory, toneOf(150, 126, 88), line) * (1 - shaded), toneOf(250, 248, 243), core)};
    surface.height = 0.75F * std::min(fromPicture, bevelStart);
    return surface;
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const bool horizontal = spot.side == Side::Top || spot.side == Side::Bottom;
    const float thickness = float(horizontal ? sheet.sizes.top : sheet.sizes.side);
    return spot.depth < woodEnd ? woodAround(spot) : board(spot, thickness - spot.depth);
}

} // namespace

Painting passePartout() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
