// SPDX-License-Identifier: GPL-3.0-or-later
#include "Sky.h"

namespace tarsel::samples {

Rgb Sky::haze(Vector view) const {
    const float towardsSun = std::max(dot(view, sun), 0.0F);
    return horizon + glow * std::pow(towardsSun, glowSize) * 0.7F;
}

Rgb Sky::light(Vector view) const {
    const float height = std::max(view.y, 0.0F);
    const float towardsSun = std::max(dot(view, sun), 0.0F);
    Rgb light = mix(horizon, zenith, 1 - std::exp(-height * 4));
    light += glow * (std::pow(towardsSun, glowSize) * 0.7F + std::pow(towardsSun, glowSize * 30) * 0.6F);
    if (sunDisk > 0)
        light += Rgb{1, 0.9F, 0.75F} * (sunDisk * ramp(0.99993F, 0.99998F, towardsSun));
    return light;
}

Rgb Sky::through(Rgb thing, Vector view, float distance) const {
    return mix(haze(view), thing, std::exp(-distance / hazeReach));
}

} // namespace tarsel::samples
