// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/Artworks.h"

namespace tarsel::artwork {

/// White paper with a window of round corners, and the soft shadow of the picture on it.
MaskTone roundedCorners() {
    return [](float x, float y) {
        const float distance = fromRectangle(x, y, 34, 34, 56);
        if (distance < 0)
            return 0.0F;
        const float shadow = fromRectangle(x - 6, y - 8, 38, 38, 60);
        const float shade = 1 - step(-6, 24, shadow);
        return hemmed(1 - 0.52F * shade * shade, distance);
    };
}

} // namespace tarsel::artwork
