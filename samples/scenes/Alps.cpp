// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/scenes/Alps.h"

#include "samples/Noise.h"

namespace tarsel::samples {

float Alps::height(float x, float z, float distance) const {
    const int octaves = std::clamp(int(12.5F - std::log2(distance / 500)), 4, 10);
    const float rise = ramp(1500, 12000, z); // the valley at the eye's feet rises to the range
    const float ridges = 1.9F * eroded(x / 5200, z / 5200, octaves, m_seed);
    return m_peak * (0.10F + 0.90F * rise) * ridges - 150 * (1 - rise);
}

Rgb Alps::surface(const GroundPoint& point) const {
    const float grainy = fractal(point.place.x / 90, point.place.z / 90, 3, m_seed + 9);
    const Rgb rock = mix(Rgb{0.10F, 0.09F, 0.085F}, Rgb{0.21F, 0.18F, 0.16F}, grainy);
    const Rgb wood = mix(Rgb{0.012F, 0.022F, 0.010F}, Rgb{0.035F, 0.05F, 0.018F}, grainy);
    const float high = ramp(m_snowLine * 0.45F, m_snowLine * 0.75F, point.place.y + (grainy - 0.5F) * 500);
    const float snow = ramp(m_snowLine * 0.85F, m_snowLine * 1.15F, point.place.y + (grainy - 0.5F) * 900) *
                       ramp(0.50F, 0.72F, point.normal.y + (grainy - 0.5F) * 0.2F);
    return mix(mix(wood, rock, std::max(high, ramp(0.62F, 0.5F, point.normal.y))), Rgb{0.85F, 0.87F, 0.9F},
               snow);
}

Rgb Alps::light(const GroundPoint& point) const {
    const float facing = std::max(dot(point.normal, m_sky.sun), 0.0F);
    const float lit = facing > 0 ? facing * sunlight(point, m_sky.sun, 5000) : 0;
    const Rgb warm = Rgb{1.9F, 1.45F, 1.05F} * lit;
    const Rgb cool = m_sky.zenith * (0.55F + 0.45F * point.normal.y) + m_sky.horizon * 0.15F;
    const Vector view = unit({point.place.x, 0, point.distance});
    return m_sky.through(surface(point) * (warm + cool), view, point.distance);
}

} // namespace tarsel::samples
