// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/Sky.h"

namespace tarsel::samples {

namespace {

/// A swell with waves upon waves, and foam on the steepest.
class Sea final : public Ground {
public:
    explicit Sea(const Sky& sky) : m_sky(sky) {}
    float height(float x, float z, float distance) const override {
        float sum = 0.9F * std::sin(z / 9 + x / 31 + 2 * fractal(x / 40, z / 40, 2, 3));
        float size = 14;
        float strength = 1.15F;
        const int octaves = std::clamp(int(9 - std::log2(distance / 6)), 2, 8);
        for (int i = 0; i < octaves; ++i, size *= 0.52F, strength *= 0.47F) {
            const float crest =
                1 - std::fabs(2 * bump(x / size + 3.1F * float(i), z / (size * 0.6F), 10 + i).value - 1);
            sum += strength * crest * crest;
        }
        return sum;
    }
    Rgb light(const GroundPoint& point) const override {
        const Vector view = unit({point.place.x, point.place.y - eyeHeight, point.place.z});
        const float facing = std::max(-dot(view, point.normal), 0.0F);
        // Schlick's approximation of how much water mirrors: 2 % straight down, all of it at grazing.
        const float mirror = 0.02F + 0.98F * std::pow(1 - facing, 5.0F);
        const float twice = 2 * dot(view, point.normal);
        const Vector seen =
            unit({view.x - twice * point.normal.x, std::fabs(view.y - twice * point.normal.y) + 0.02F,
                  view.z - twice * point.normal.z});
        const float glitter = std::pow(std::max(dot(seen, m_sky.sun), 0.0F), 260.0F) * 26;
        const float thin = ramp(0.5F, 2.6F, point.place.y);
        const Rgb body = mix(Rgb{0.006F, 0.035F, 0.055F}, Rgb{0.03F, 0.17F, 0.17F}, thin);
        const Rgb water = mix(body, m_sky.light(seen), mirror * 0.85F) + Rgb{1, 0.75F, 0.5F} * glitter;
        return m_sky.through(mix(water, Rgb{0.85F, 0.84F, 0.84F}, foam(point)), view, point.distance);
    }

    static constexpr float eyeHeight = 6.5F;

private:
    static float foam(const GroundPoint& point) {
        const float lace = ridged(point.place.x * 1.4F, point.place.z * 1.4F, 4, 31);
        return 0.8F * ramp(2.0F, 2.9F, point.place.y + (lace - 0.6F) * 1.6F);
    }

    Sky m_sky;
};

} // namespace

QImage openSea() {
    Canvas canvas(1600, 1067);
    Sky sky{{0.15F, 0.28F, 0.52F}, {0.86F, 0.66F, 0.54F}, {1.3F, 0.65F, 0.25F}, unit({-0.22F, 0.13F, 1})};
    sky.glowSize = 10;
    sky.sunDisk = 40;
    sky.hazeReach = 6000;
    const Eye eye{{0, Sea::eyeHeight, 0}, 0.9F, 0.45F};
    expose(canvas, [&](float x, float y) {
        const Vector view = viewOf(canvas, eye, x, y);
        const float away = 1 / (std::max(view.y, 0.0F) + 0.05F);
        const float cloud = fractal(view.x * away * 0.35F, view.z * away * 0.8F, 7, 44);
        const Rgb edge = Rgb{1.5F, 0.95F, 0.65F};
        const Rgb lit = mix(edge, Rgb{0.42F, 0.38F, 0.44F}, ramp(0.5F, 0.7F, cloud));
        return mix(sky.light(view), lit, 0.9F * ramp(0.46F, 0.66F, cloud) * ramp(0.0F, 0.12F, view.y));
    });
    paintGround(canvas, eye, Sea(sky), {7, 9000, 0.0045F});
    return develop(std::move(canvas), {1.0F, 0.10F, 0.4F, 0.018F, 0.55F, false, 5});
}

} // namespace tarsel::samples
