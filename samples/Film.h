// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Light.h"

#include <QImage>
#include <cstdint>

namespace tarsel::samples {

/// How the light on the canvas becomes a picture.
struct Film {
    float exposure = 1;
    float bloom = 0.06F;    ///< share of the light that strays about bright places
    float vignette = 0.35F; ///< loss of light in the corners
    float grain = 0.02F;    ///< of the full range, in the middle tones
    float contrast = 0.5F;  ///< strength of the S-shaped curve, 0 to 1
    bool gray = false;
    std::uint32_t seed = 1;
};

/// The developed picture: stray light, fall-off, tone curve, grain.
QImage develop(Canvas canvas, const Film& film);

/// Spreads light over about `radius` pixels: three passes of a mean, which come near a Gaussian.
void soften(Canvas& canvas, int radius);

} // namespace tarsel::samples
