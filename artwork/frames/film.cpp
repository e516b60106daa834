// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

constexpr float pitch = 20; ///< of the holes
constexpr float holeWidth = 9, holeHeight = 13, holeTop = 5.5F, holeRadius = 2.6F;

/// Distance from a rounded rectangle round the origin; negative inside.
float fromRounded(float x, float y, float width, float height, float radius) {
    const float right = std::fabs(x) - width / 2 + radius, below = std::fabs(y) - height / 2 + radius;
    const float outside = std::hypot(std::max(right, 0.0F), std::max(below, 0.0F));
    return outside + std::min(std::max(right, below), 0.0F) - radius;
}

/// The distance from the nearest hole. Holes of the right corner stand as those of the left one do.
float fromHole(const Sheet& sheet, float x, float fromEdge) {
    const float corner = float(sheet.sizes.corner), toCorner = float(sheet.width() - sheet.sizes.right);
    const float along = x < toCorner ? x - corner : float(sheet.width()) - x - corner;
    constexpr float shift = 0.225F; // a gap is at both ends of the strip and where the pieces meet
    const float u = along / pitch + shift - std::floor(along / pitch + shift) - 0.5F;
    return fromRounded(u * pitch, fromEdge - holeTop - holeHeight / 2, holeWidth, holeHeight, holeRadius);
}

/// What the maker exposed on the edge: a bar code without meaning, and arrows.
float edgePrint(const Sheet& sheet, float x, float fromEdge) {
    const float along = x - float(sheet.sizes.corner), tile = float(sheet.sizes.tile);
    const float place = along - tile * std::floor(along / tile);
    const float arrow =
        step(0, 0.6F, std::min(place - 4, (9.5F - place) * 0.5F - std::fabs(fromEdge - 25.5F)));
    const auto slot = std::int32_t(std::floor(place / 2));
    const bool dark = slot < 8 || slot > 17 || samples::chance(slot, 3, 9) < 0.45F;
    const float code = dark ? 0 : band(23.2F, 27.8F, 0.3F, fromEdge);
    return std::max(arrow, code);
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const float fromEdge = std::min(y, float(sheet.height()) - y);
    Surface surface{toneOf(27, 23, 22)};
    if (fromEdge >= float(sheet.sizes.top))
        return surface;
    const float hole = fromHole(sheet, x, fromEdge);
    const float rim = band(0.1F, 0.9F, 0.25F, hole);
    const Tone base = mixed(surface.color, toneOf(62, 54, 50), rim);
    surface.color = mixed(base, toneOf(206, 132, 52), 0.85F * edgePrint(sheet, x, fromEdge));
    if (hole < 0) {
        surface.color = gray(0.985F - 0.16F * (1 - step(0, 2.2F, -hole)));
        surface.glow = 1;
    }
    return surface;
}

} // namespace

Painting film() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
