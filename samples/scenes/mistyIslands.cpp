// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"

namespace tarsel::samples {

namespace {

constexpr int layers = 9;

/// Row of an island chain's ridge; below the water line where there is sea.
float ridge(const Canvas& canvas, int layer, float x) {
    const float near = float(layer) / (layers - 1);
    const float water = float(canvas.height()) * (0.43F + 0.40F * near * near);
    const float place = x / float(canvas.width()) * (1.8F - 0.7F * near) + 11.3F * float(layer);
    const float island = ramp(0.40F, 0.75F, fractal(place * 1.3F, 0.7F, 2, 101 + layer));
    const float rough = fractal(place * 4.5F, 1.3F, 7, 121 + layer);
    const float trees = 7 * near * fractal(x / 4, float(layer), 3, 141);
    return water + 6 - island * (90 + 150 * near) * (0.45F + 0.9F * rough) - trees * island;
}

/// One chain, darker and clearer the nearer it is, its foot lost in the mist over the water.
void paintChain(Canvas& canvas, int layer) {
    const float near = float(layer) / (layers - 1);
    const float water = float(canvas.height()) * (0.43F + 0.40F * near * near);
    const float tone = mix(0.60F, 0.018F, std::pow(near, 0.6F));
    for (int x = 0; x < canvas.width(); ++x) {
        const float top = ridge(canvas, layer, float(x));
        for (int y = std::max(int(top), 0); y < int(water); ++y) {
            const float mist = ramp(90, 0, water - float(y)) *
                               (0.25F + 0.7F * fractal(float(x) / 240, float(y) / 50, 4, 151));
            const float light = mix(tone, 0.74F, mist * (1 - 0.45F * near));
            canvas.at(x, y) = mix(canvas.at(x, y), Rgb{light, light, light}, clamped(float(y + 1) - top));
        }
    }
}

Rgb skyOrWater(const Canvas& canvas, float x, float y) {
    const float u = x / float(canvas.width());
    const float v = y / float(canvas.height());
    const float sun = std::exp(-((u - 0.62F) * (u - 0.62F) * 1.8F + (v - 0.16F) * (v - 0.16F)) * 26);
    const float veil = fractal(u * 3, v * 9, 6, 161);
    float light = 0.62F + 0.55F * sun + 0.28F * (veil - 0.5F) * ramp(0.45F, 0.1F, v);
    if (v > 0.43F) {
        const float near = (v - 0.43F) / 0.57F;
        const float path = std::exp(-(u - 0.62F) * (u - 0.62F) * 30 / (0.3F + near));
        const float ripple = fractal((u - 0.5F) * 20 / (near + 0.06F), 22 / (near + 0.06F), 4, 162);
        light = mix(0.66F, 0.14F, ramp(0, 0.9F, near)) + (ripple - 0.5F) * 0.34F * near +
                path * (0.30F + 1.0F * ramp(0.5F, 0.8F, ripple) * near);
    }
    return {light, light, light};
}

} // namespace

QImage mistyIslands() {
    Canvas canvas(1800, 1000);
    expose(canvas, [&](float x, float y) { return skyOrWater(canvas, x, y); });
    for (int layer = 0; layer < layers; ++layer)
        paintChain(canvas, layer);
    return develop(std::move(canvas), {1.25F, 0.08F, 0.4F, 0.045F, 0.6F, true, 9});
}

} // namespace tarsel::samples
