// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "artwork/Wood.h"

namespace tarsel::artwork {

namespace {

constexpr WoodTones tones{toneOf(64, 34, 22), toneOf(110, 62, 38), toneOf(44, 22, 14)};
constexpr float clothEdge = 3; ///< from the outer edge of the sides
constexpr float knobWidth = 7;
constexpr float lineWidth = 1.4F; ///< of the gold line round the picture

/// A rod across the sheet, between two heights.
struct Rod {
    float top, bottom;
    static constexpr float knobExcess = 1.6F; ///< of the knobs over the wood
    float middle() const { return (top + bottom) / 2; }
    bool covers(float y, bool knob) const {
        return std::fabs(y - middle()) < (bottom - top) / 2 - (knob ? 0 : knobExcess);
    }
};

Rod rodAbove() {
    return {7, 27};
}

Rod rodBelow(const Sheet& sheet) {
    return {float(sheet.height()) - 16, float(sheet.height()) - 2};
}

Surface paper() {
    Surface surface{gray(1)};
    surface.glow = 1;
    return surface;
}

/// Turned wood with an ivory knob at each end.
Surface rodAt(const Sheet& sheet, const Rod& rod, float x, float y) {
    const float fromEnd = std::min(x, float(sheet.width()) - x);
    const bool knob = fromEnd < knobWidth;
    const float thickness = (rod.bottom - rod.top) / 2 - (knob ? 0 : Rod::knobExcess);
    const float rest = thickness * thickness - (y - rod.middle()) * (y - rod.middle());
    const Spot grain{Side::Top, y, 0, x - float(sheet.sizes.corner), float(sheet.sizes.tile), -1};
    const float ring = band(knobWidth, knobWidth + 1.6F, 0.2F, fromEnd);
    const Tone wood = mixed(woodAt(grain, tones, 0.8F), toneOf(190, 148, 74), ring);
    Surface surface{knob ? toneOf(234, 222, 196) : wood, std::sqrt(std::max(rest, 0.0F)) * 0.8F};
    if (knob)
        surface.height -= 2.5F * (1 - dome(-knobWidth, knobWidth, knobWidth - fromEnd));
    surface.gloss = 0.45F;
    surface.sharpness = 26;
    return surface;
}

/// Diamonds woven into silk, 0 to 1.
float brocade(float x, float y, float pitch) {
    const float u = x / pitch, v = y / pitch;
    const float across = std::fabs(u - std::floor(u) - 0.5F), down = std::fabs(v - std::floor(v) - 0.5F);
    const float diamond = std::fabs(across + down - 0.5F);
    return std::max(1 - step(0.05F, 0.13F, diamond), 1 - step(0.10F, 0.17F, across + down));
}

/// Silk with a gold line round the opening, in the shade of the rod.
Surface clothAt(const Sheet& sheet, float x, float y, float fromOpening, float shade) {
    const float fromEdge = std::min(x, float(sheet.width()) - x);
    if (fromEdge < clothEdge)
        return paper();
    constexpr float pitch = 9;
    const float pattern = brocade(x - float(sheet.sizes.corner), y - float(sheet.sizes.top), pitch);
    const float line = 1 - step(lineWidth - 0.2F, lineWidth + 0.2F, fromOpening);
    const Tone silk = mixed(toneOf(28, 66, 74), toneOf(84, 124, 118), 0.62F * pattern);
    Surface surface{mixed(silk, toneOf(206, 170, 96), line) * (1 - shade)};
    surface.height = 1.2F * step(clothEdge, clothEdge + 1.5F, fromEdge);
    return surface;
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Rod above = rodAbove(), below = rodBelow(sheet);
    const bool knob = std::min(x, float(sheet.width()) - x) < knobWidth;
    if (above.covers(y, knob))
        return rodAt(sheet, above, x, y);
    if (below.covers(y, knob))
        return rodAt(sheet, below, x, y);
    if (y < above.middle() || y > below.middle())
        return paper();
    const float beside = float(sheet.sizes.side) - std::min(x, float(sheet.width()) - x);
    const float over = std::max(float(sheet.sizes.top) - y, y - float(sheet.height() - sheet.sizes.bottom));
    const float shade = 0.45F * (1 - step(0, 7, y - above.bottom));
    return clothAt(sheet, x, y, std::max(beside, over), shade);
}

} // namespace

Painting scroll() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
