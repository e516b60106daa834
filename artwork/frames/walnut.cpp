// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "artwork/Wood.h"

namespace tarsel::artwork {

namespace {

constexpr WoodTones tones{toneOf(58, 33, 18), toneOf(128, 80, 45), toneOf(34, 19, 11)};
constexpr float lipStart = 0.80F, lipEnd = 0.93F;

/// A rounded outer edge, a swell, a hollow, a gilt lip, and a last step down to the picture.
float heightAt(float across) {
    const float edge = 9 * step(0, 0.09F, across);
    const float swell = 5.5F * dome(0.10F, 0.66F, across);
    const float hollow = -9 * step(0.52F, 0.79F, across);
    const float lip = 3.4F * dome(lipStart, lipEnd, across);
    return edge + swell + hollow + lip - 2.5F * step(lipEnd, 1, across);
}

Surface surfaceAt(const Sheet& sheet, float x, float y) {
    const Spot spot = sheet.spotAt(x, y);
    const float gilt = band(lipStart, lipEnd, 0.006F, spot.across);
    const float groove = band(0.765F, 0.80F, 0.012F, spot.across) + step(0.945F, 0.975F, spot.across);
    const Tone wood = woodAt(spot, tones) * (1 - 0.65F * std::min(groove, 1.0F));
    Surface surface{mixed(wood, toneOf(196, 152, 76), gilt), heightAt(spot.across)};
    surface.gloss = 0.20F + 0.35F * gilt;
    surface.sharpness = 22;
    surface.shine = mixed(toneOf(255, 236, 214), toneOf(255, 232, 160), gilt);
    return surface;
}

} // namespace

Painting walnut() {
    return lit(surfaceAt);
}

} // namespace tarsel::artwork
