// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

constexpr float blockSide = 42; ///< of the square block at a corner
constexpr float bandStart = 0.26F, bandEnd = 0.72F;
constexpr float beadsStart = 0.78F, beadsEnd = 0.92F;

/// Distance to the next multiple of `pitch`, -0.5 to 0.5 of it.
float phase(float along, float pitch) {
    const float turns = along / pitch;
    return turns - std::floor(turns) - 0.5F;
}

/// Eggs in their cups, with a dart between each two; 0 to 1.
float eggs(const Spot& spot) {
    const float u = 2 * phase(spot.along, spot.period / 2);
    const float v = 2 * (spot.across - bandStart) / (bandEnd - bandStart) - 1;
    const float egg = 1 - (u * u / 0.30F + (v + 0.08F) * (v + 0.08F) / 0.62F);
    const float cup = std::sqrt(u * u / 0.60F + v * v / 0.98F);
    const float dart =
        (1 - step(0.02F, 0.17F, std::fabs(std::fabs(u) - 1) + 0.10F * (v + 1))) * (1 - std::fabs(v));
    return std::max({egg > 0 ? std::sqrt(egg) : 0.0F, 0.62F * band(0.86F, 1.02F, 0.06F, cup), 0.8F * dart});
}

float beads(const Spot& spot, float pitches) {
    const float pitch = spot.period / pitches;
    const float u = phase(spot.along, pitch) * pitch;
    const float v = (spot.across - (beadsStart + beadsEnd) / 2) * 42;
    const float rest = 2.9F * 2.9F - u * u - v * v;
    return rest > 0 ? std::sqrt(rest) : 0;
}

/// A flower of eight petals with a button, `x` and `y` from its middle.
float rosette(float x, float y) {
    const float radius = std::hypot(x, y), angle = std::atan2(y, x);
    const float petal = std::fabs(std::cos(4 * angle));
    const float reach = 9.5F + 4.5F * std::sqrt(petal);
    const float leaf =
        3.4F * std::sqrt(petal) * dome(2, 2 * reach - 2, radius) * (radius < reach ? 1.0F : 0.0F);
    const float second = 2.2F * std::fabs(std::sin(4 * angle)) * (radius < 8.5F ? dome(0, 17, radius) : 0.0F);
    const float button = radius < 4 ? 2.2F + 2.6F * dome(-4, 4, radius) : 0;
    return std::max({leaf, second, button});
}

/// The frame without ornament: a torus outside, the band, a fillet inside.
float mouldingAt(float across) {
    return 6 * step(0, 0.05F, across) + 4.2F * dome(0.02F, 0.24F, across) -
           2.2F * step(bandStart - 0.03F, bandStart + 0.02F, across) + 2.5F * dome(0.2F, 0.8F, across) -
           3.5F * step(bandEnd, beadsStart, across) - 1.5F * step(beadsEnd, 1, across);
}

/// From the middle of the nearest corner block; positive x and y run towards the middle of the frame.
struct Corner {
    float x, y;
    bool isBlock() const { return std::max(std::fabs(x), std::fabs(y)) <= blockSide / 2; }
};

Corner cornerAt(const Sheet& sheet, float x, float y) {
    return {std::min(x, float(sheet.width()) - x) - blockSide / 2,
            std::min(y, float(sheet.height()) - y) - blockSide / 2};
}

float blockHeight(Corner corner) {
    const float edge = std::max(std::fabs(corner.x), std::fabs(corner.y));
    const float rim = 2.4F * dome(16.2F, 20.6F, edge);
    return 5.5F * step(0, 1.2F, blockSide / 2 - edge) + rim + rosette(corner.x, corner.y);
}

/// Between a corner block and the first egg there is a piece without eggs.
bool isPlain(const Sheet& sheet, const Spot& spot, float x) {
    const bool horizontal = spot.side == Side::Top || spot.side == Side::Bottom;
    return horizontal && (x < float(sheet.sizes.corner) || x > float(sheet.width() - sheet.sizes.right));
}

float reeds(Corner corner) {
    const float u = corner.x - blockSide / 2; // 0 to 15
    return 2.0F * std::max({dome(0.5F, 5.0F, u), dome(5.2F, 9.7F, u), dome(10.0F, 14.6F, u)});
}

float heightAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const Corner corner = cornerAt(sheet, x, y);
    if (corner.isBlock())
        return blockHeight(corner);
    const float moulding = mouldingAt(spot.across);
    const bool inBand = spot.across > bandStart && spot.across < bandEnd;
    const float ornament = !inBand ? 0 : isPlain(sheet, spot, x) ? reeds(corner) : 4.2F * eggs(spot);
    return moulding + ornament + beads(spot, 6);
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const float height = heightAt(sheet, x, y);
    const float leaf = repeated(spot.along, spot.period, [&](float along) {
        return samples::fractal(along * 0.16F, spot.depth * 0.16F, 3, 5);
    });
    const float depthShade = 0.52F + 0.48F * step(2.5F, 8.5F, height);
    Surface surface{mixed(toneOf(158, 108, 34), toneOf(222, 176, 82), leaf) * depthShade, height};
    surface.gloss = 0.55F;
    surface.sharpness = 16;
    surface.shine = toneOf(255, 228, 150);
    return surface;
}

} // namespace

Painting goldLeaf() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
