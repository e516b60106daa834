// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Wood.h"

#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

using samples::fractal;

/// Rings of a board cut lengthwise, 0 to 1.
float rings(float along, float depth, std::uint32_t seed) {
    const float bend = fractal(along * 0.011F, depth * 0.035F, 3, seed) * 34;
    const float wave = 0.5F + 0.5F * std::sin((depth * 0.85F + bend));
    return 0.55F * wave + 0.45F * fractal(along * 0.02F, depth * 0.5F, 3, seed + 1);
}

/// The far corner meets the repeated piece wherever that is cut off, so it starts with the mean of the grain.
Tone meanTone(const std::function<Tone(float)>& grain, float period) {
    constexpr int places = 12;
    Tone sum;
    for (int i = 0; i < places; ++i)
        sum = sum + grain(period * float(i) / places);
    return sum * (1.0F / places);
}

/// Short dark strokes.
float pores(float along, float depth, std::uint32_t seed) {
    return step(0.60F, 0.78F, fractal(along * 0.14F, depth * 2.3F, 2, seed + 2));
}

} // namespace

Tone woodAt(const Spot& spot, const WoodTones& tones, float scale) {
    const auto seed = std::uint32_t(spot.side) * 5 + 11;
    const float depth = spot.depth * scale;
    const auto grain = [&](float along) {
        const float ring = repeated(along * scale, spot.period * scale,
                                    [&](float place) { return rings(place, depth, seed); });
        const float pore = repeated(along * scale, spot.period * scale,
                                    [&](float place) { return pores(place, depth, seed); });
        return mixed(mixed(tones.dark, tones.light, std::clamp(ring, 0.0F, 1.0F)), tones.pore,
                     0.55F * std::clamp(pore, 0.0F, 1.0F));
    };
    constexpr float blending = 12; // pixels
    const Tone wood = grain(spot.along);
    return spot.beyond < 0 || spot.beyond > blending
               ? wood
               : mixed(meanTone(grain, spot.period), wood, step(0, blending, spot.beyond));
}

} // namespace tarsel::artwork
