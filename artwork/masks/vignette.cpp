// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"
#include "artwork/masks/Grain.h"

namespace tarsel::artwork {

/// Darkens towards the corners, by grains: only black is see-through, so half shades are not possible.
MaskTone vignette() {
    return [](float x, float y) {
        const float u = (x - maskWidth / 2.0F) / (maskWidth / 2.0F),
                    v = (y - maskHeight / 2.0F) / (maskHeight / 2.0F);
        const float radius = std::pow(std::pow(std::fabs(u), 2.3F) + std::pow(std::fabs(v), 2.3F), 1 / 2.3F);
        const float covered = step(0.80F, 1.30F, radius);
        return grainAt(int(x), int(y)) < covered ? darkGray : 0.0F;
    };
}

} // namespace tarsel::artwork
