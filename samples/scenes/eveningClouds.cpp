// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"
#include "samples/Sky.h"

namespace tarsel::samples {

namespace {

/// Depth of the cloud sheet over a place of its plane; 0 where the sky is open.
float cloudDepth(float x, float z, int octaves) {
    const float warp = fractal(x * 0.7F, z * 0.7F, 2, 81);
    const float banks = fractal(x * 0.35F + warp, z * 0.5F, 2, 82);
    return std::max(fractal(x + warp * 0.8F, z * 1.5F, octaves, 83) + 0.7F * (banks - 0.5F) - 0.40F, 0.0F);
}

/// Light from the low sun strikes the sheet's bellies from below and is lost in what it passes.
Rgb cloudLight(float x, float z, float depth, float towardsSun) {
    float passed = 0;
    for (int i = 1; i <= 4; ++i)
        passed += std::max(cloudDepth(x + 0.02F * float(i), z + 0.075F * float(i), 5) - depth * 0.8F, 0.0F);
    const float lit = std::exp(-passed * 9) * std::exp(-depth * 3.2F);
    const Rgb fire = mix(Rgb{1.7F, 0.46F, 0.20F}, Rgb{2.8F, 1.35F, 0.50F}, towardsSun);
    return mix(Rgb{0.13F, 0.11F, 0.17F}, fire, lit);
}

Rgb skyLight(const Sky& sky, Vector view) {
    const Rgb clear = sky.light(view);
    const float height = view.y - 0.012F;
    if (height <= 0)
        return clear;
    const float away = 0.62F / (height + 0.035F);
    const float x = view.x * away * 1.5F + 3.7F;
    const float z = view.z * away;
    const float depth = cloudDepth(x, z, away > 6 ? 6 : 8);
    const float towardsSun = std::pow(std::max(dot(view, sky.sun), 0.0F), 6.0F);
    const float cover = ramp(0.0F, 0.16F, depth) * ramp(0.0F, 0.05F, height);
    return mix(clear, cloudLight(x, z, depth, towardsSun), 0.96F * cover);
}

/// Rows of hills, the nearer the darker.
void paintHills(Canvas& canvas, const Sky& sky, const Eye& eye) {
    for (int layer = 0; layer < 4; ++layer) {
        const float near = float(layer) / 3;
        for (int x = 0; x < canvas.width(); ++x) {
            const float place = float(x) / float(canvas.width()) * (2.2F + 1.5F * (1 - near));
            const float rise = fractal(place + 7.3F * float(layer), 0.3F, 7, 85 + layer) * (70 + 55 * near);
            const float top = eye.horizon * float(canvas.height()) + 18 + 62 * near - rise;
            const Rgb air = sky.haze(viewOf(canvas, eye, float(x), eye.horizon * float(canvas.height())));
            const Rgb light = mix(air * 0.55F, Rgb{0.008F, 0.008F, 0.012F}, 0.35F + 0.62F * near);
            for (int y = int(top); y < canvas.height(); ++y)
                canvas.at(x, y) = mix(canvas.at(x, y), light, clamped(float(y + 1) - top));
        }
    }
}

} // namespace

QImage eveningClouds() {
    Canvas canvas(1600, 1067);
    Sky sky{{0.07F, 0.13F, 0.30F}, {0.78F, 0.36F, 0.20F}, {1.6F, 0.75F, 0.20F}, unit({0.12F, 0.02F, 1})};
    sky.glowSize = 7;
    const Eye eye{{0, 0, 0}, 0.8F, 0.86F};
    expose(canvas, [&](float x, float y) { return skyLight(sky, viewOf(canvas, eye, x, y)); });
    paintHills(canvas, sky, eye);
    return develop(std::move(canvas), {0.95F, 0.10F, 0.35F, 0.02F, 0.5F, false, 7});
}

} // namespace tarsel::samples
