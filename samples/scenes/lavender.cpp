// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/Sky.h"

namespace tarsel::samples {

namespace {

constexpr float rowWidth = 1.9F; // metres from row to row
constexpr float fieldEnd = 190;  // metres

/// Rows of bushes that run away from the eye, then trees, then hills.
class Field final : public Ground {
public:
    explicit Field(const Sky& sky) : m_sky(sky) {}
    float height(float x, float z, float distance) const override {
        if (z < fieldEnd)
            return bush(x, z, distance) + swell(x, z);
        const float hills = 150 * ramp(fieldEnd + 200, 5000, z) * fractal(x / 1500, z / 1500, 4, 3);
        return swell(x, fieldEnd) + hills + trees(x, z);
    }
    Rgb light(const GroundPoint& point) const override {
        const float facing = std::max(dot(point.normal, m_sky.sun), 0.0F);
        const Rgb arriving = Rgb{2.2F, 1.45F, 0.85F} * (facing * 0.85F + 0.1F) + m_sky.zenith * 0.55F;
        const Rgb thing = point.place.z < fieldEnd ? plant(point) : wood(point);
        return m_sky.through(thing * arriving, unit({point.place.x, 0, point.distance}), point.distance);
    }

private:
    static float swell(float x, float z) { return 3.2F * fractal(x / 130, z / 110, 2, 12) - 1.6F; }
    static float acrossRow(float x) {
        const float place = x / rowWidth;
        return std::fabs(place - std::floor(place) - 0.5F) * 2; // 0 in the middle of a row, 1 between two
    }
    static float bush(float x, float z, float distance) {
        const float round = std::sqrt(std::max(1 - acrossRow(x) * acrossRow(x) * 1.7F, 0.0F));
        const float clumps = fractal(x * 1.3F, z * 1.3F, 2, 5);
        const float stalks = distance < 60 ? fractal(x * 13, z * 13, 2, 6) - 0.5F : 0;
        return round * (0.45F + 0.45F * clumps) + stalks * 0.30F * round;
    }
    static float trees(float x, float z) {
        const float grove = ramp(0.42F, 0.6F, fractal(x / 60, z / 160, 2, 7));
        const float belt = ramp(fieldEnd + 110, fieldEnd + 10, z);
        return belt * (3 + 11 * grove) * (0.5F + 0.7F * fractal(x / 5, z / 5, 4, 8));
    }
    static Rgb plant(const GroundPoint& point) {
        const Vector& p = point.place;
        const float fleck = point.distance < 70 ? fractal(p.x * 16, p.z * 16, 3, 9) : 0.5F;
        const float bloom = ramp(0.25F, 0.62F, bush(p.x, p.z, 1000) + (fleck - 0.5F) * 0.5F);
        const Rgb soil = mix(Rgb{0.11F, 0.075F, 0.045F}, Rgb{0.06F, 0.085F, 0.025F}, fleck);
        const Rgb flower = mix(Rgb{0.10F, 0.06F, 0.24F}, Rgb{0.36F, 0.21F, 0.58F}, fleck);
        return mix(soil, flower, bloom);
    }
    static Rgb wood(const GroundPoint& point) {
        const float leaves = fractal(point.place.x / 2, point.place.y / 2, 3, 10);
        return mix(Rgb{0.015F, 0.03F, 0.012F}, Rgb{0.08F, 0.10F, 0.03F}, leaves);
    }

    Sky m_sky;
};

} // namespace

QImage lavender() {
    Canvas canvas(1600, 1200);
    Sky sky{{0.20F, 0.33F, 0.62F}, {0.98F, 0.68F, 0.46F}, {1.5F, 0.75F, 0.25F}, unit({0.42F, 0.16F, 0.9F})};
    sky.glowSize = 14;
    sky.sunDisk = 30;
    sky.hazeReach = 3200;
    const Eye eye{{0.95F, 2.7F, 0}, 0.75F, 0.42F};
    expose(canvas, [&](float x, float y) {
        const Vector view = viewOf(canvas, eye, x, y);
        const float away = 1 / (std::max(view.y, 0.0F) + 0.08F);
        const float cloud = fractal(view.x * away * 0.7F, view.z * away * 0.8F, 6, 21);
        const Rgb lit = mix(Rgb{0.62F, 0.46F, 0.50F}, Rgb{1.6F, 1.0F, 0.62F}, ramp(0.72F, 0.50F, cloud));
        return mix(sky.light(view), lit, 0.8F * ramp(0.50F, 0.70F, cloud) * ramp(0.02F, 0.3F, view.y));
    });
    paintGround(canvas, eye, Field(sky), {2.2F, 6000, 0.0045F});
    return develop(std::move(canvas), {1.15F, 0.12F, 0.4F, 0.02F, 0.5F, false, 4});
}

} // namespace tarsel::samples
