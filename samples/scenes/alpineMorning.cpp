// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/scenes/Alps.h"

namespace tarsel::samples {

namespace {

/// Thin high clouds, drawn out by the wind.
Rgb withCirrus(Rgb sky, Vector view, std::uint32_t seed) {
    const float away = 1 / (std::max(view.y, 0.0F) + 0.06F);
    const float x = view.x * away;
    const float z = view.z * away;
    const float bend = fractal(x * 0.6F, z * 0.6F, 3, seed + 1) * 1.5F;
    const float density = fractal(x * 0.5F + bend, z * 1.6F + bend, 6, seed);
    return mix(sky, Rgb{1.25F, 1.08F, 0.98F}, 0.5F * ramp(0.50F, 0.9F, density) * ramp(0.02F, 0.2F, view.y));
}

} // namespace

QImage alpineMorning() {
    Canvas canvas(1600, 1200);
    Sky sky{{0.16F, 0.30F, 0.62F}, {0.68F, 0.68F, 0.72F}, {0.7F, 0.4F, 0.2F}, unit({0.85F, 0.30F, 0.25F})};
    sky.hazeReach = 75000;
    const Eye eye{{9000, 620, 0}, 1.7F, 0.80F};
    expose(canvas, [&](float x, float y) {
        const Vector view = viewOf(canvas, eye, x, y);
        return withCirrus(sky.light(view), view, 4);
    });
    paintGround(canvas, eye, Alps(sky, 21, 3800, 1500), {500, 42000, 0.004F});
    return develop(std::move(canvas), {1.5F, 0.08F, 0.4F, 0.02F, 0.65F, false, 1});
}

} // namespace tarsel::samples
