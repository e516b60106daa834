// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"

namespace tarsel::artwork {

/// A white mat with an oval window, shaded where its bevel turns from the light.
MaskTone oval() {
    return [](float x, float y) {
        const float u = (x - maskWidth / 2.0F) / 352, v = (y - maskHeight / 2.0F) / 264;
        const float radius = std::hypot(u, v);
        const float distance = (radius - 1) * 300; // roughly pixels
        if (distance < 0)
            return 0.0F;
        const float facing = (u * 0.6F + v * 0.8F) / std::max(radius, 0.01F); // 1 at the lower right
        const float bevel = 1 - step(7, 8.5F, distance);
        const float line = band(20, 21.5F, 0.8F, distance);
        return hemmed(0.975F - bevel * (0.13F - 0.14F * facing) - 0.22F * line, distance);
    };
}

} // namespace tarsel::artwork
