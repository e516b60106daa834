// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "samples/Noise.h"

namespace tarsel::artwork {

namespace {

/// How far a tear has run into the paper there.
float tear(float x, float y, float roughness, std::uint32_t seed) {
    return 34 * (samples::fractal(x * 0.013F, y * 0.013F, 3, seed) - 0.5F) +
           roughness * (samples::fractal(x * 0.09F, y * 0.09F, 4, seed + 1) - 0.5F);
}

} // namespace

/// Gray paper with a hole torn into it, and a white rim where its surface came off.
MaskTone tornPaper() {
    return [](float x, float y) {
        const float distance = fromRectangle(x, y, 52, 52, 14);
        const float hole = distance + tear(x, y, 16, 40);
        if (hole < 0)
            return 0.0F;
        const float surface = distance - 15 + tear(x, y, 22, 44);
        const float fibre = 0.05F * samples::fractal(x * 0.4F, y * 0.4F, 2, 48);
        if (surface < 0)
            return hemmed(0.94F + fibre, 1.2F * hole);
        return 0.885F - 0.10F * (1 - step(0, 4, surface));
    };
}

} // namespace tarsel::artwork
