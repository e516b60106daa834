// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/Sky.h"

namespace tarsel::samples {

namespace {

/// Sand in long ridges, with the wind's ripples near the eye.
class Sand final : public Ground {
public:
    explicit Sand(const Sky& sky) : m_sky(sky) {}
    float height(float x, float z, float distance) const override {
        const float bend = 90 * fractal(x / 260, z / 260, 2, 3) + 20 * fractal(x / 60, z / 60, 2, 4);
        const float large = 1 - std::fabs(2 * bump((x + bend) / 330, (z - bend) / 210, 5).value - 1);
        const float small = 1 - std::fabs(2 * bump((x - bend) / 120, (z + bend) / 90, 6).value - 1);
        const float dune = 52 * large * std::sqrt(large) + 9 * small * small;
        return dune + (distance < 160 ? ripples(x, z) * ramp(160, 40, distance) : 0);
    }
    Rgb light(const GroundPoint& point) const override {
        const float facing = std::max(dot(point.normal, m_sky.sun), 0.0F);
        const float lit = facing > 0 ? facing * sunlight(point, m_sky.sun, 500) : 0;
        const float grains = fractal(point.place.x * 3, point.place.z * 3, 2, 8);
        const Rgb sand = mix(Rgb{0.55F, 0.30F, 0.14F}, Rgb{0.66F, 0.40F, 0.21F}, grains);
        const Rgb arriving = Rgb{2.3F, 1.65F, 1.05F} * lit + m_sky.zenith * (0.55F * point.normal.y + 0.1F) +
                             Rgb{0.10F, 0.06F, 0.03F};
        return m_sky.through(sand * arriving, unit({point.place.x, 0, point.distance}), point.distance);
    }

private:
    static float ripples(float x, float z) {
        const float wander = 5 * fractal(x / 9, z / 9, 2, 9);
        return 0.045F * std::sin(x * 1.6F + z * 5.2F + wander * 2.4F);
    }

    Sky m_sky;
};

} // namespace

QImage dunes() {
    Canvas canvas(1600, 1067);
    Sky sky{{0.17F, 0.34F, 0.66F}, {0.86F, 0.74F, 0.62F}, {0.9F, 0.5F, 0.2F}, unit({-0.9F, 0.26F, 0.42F})};
    sky.hazeReach = 5200;
    const Eye eye{{40, 50, 30}, 0.95F, 0.36F};
    expose(canvas, [&](float x, float y) { return sky.light(viewOf(canvas, eye, x, y)); });
    paintGround(canvas, eye, Sand(sky), {9, 6000, 0.003F});
    return develop(std::move(canvas), {1.25F, 0.07F, 0.4F, 0.02F, 0.55F, false, 2});
}

} // namespace tarsel::samples
