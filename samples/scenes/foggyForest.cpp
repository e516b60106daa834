// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"

namespace tarsel::samples {

namespace {

constexpr int layers = 8;
constexpr Rgb fog{0.80F, 0.83F, 0.83F};

Rgb fogLight(const Canvas& canvas, float x, float y) {
    const float u = x / float(canvas.width()) - 0.38F;
    const float v = y / float(canvas.height()) - 0.12F;
    const float sun = std::exp(-(u * u + v * v * 1.6F) * 7);
    const float drift = fractal(u * 2, v * 6, 5, 201) - 0.5F;
    return fog * (0.62F + 0.22F * drift) + Rgb{0.75F, 0.62F, 0.42F} * sun;
}

struct Fir {
    float middle;
    float foot;
    float height;
    float lean;
    std::int32_t number;
};

/// How much of a pixel a fir hides: a bare top, boughs in whorls that widen and droop downwards.
float firCover(const Fir& fir, float x, float y) {
    const float down = (y - (fir.foot - fir.height)) / fir.height; // 0 at the tip, 1 at the foot
    if (down < 0 || down > 1)
        return 0;
    const float across = x - fir.middle - fir.lean * (1 - down);
    const float side = across < 0 ? 0.0F : 7.3F;
    const float whorls = 0.55F + 0.45F * std::fabs(2 * bump(down * fir.height / 26 - std::fabs(across) / 34,
                                                            float(fir.number) + side, 211)
                                                           .value -
                                                   1);
    const float ragged =
        0.65F + 0.7F * fractal(y / 5 - std::fabs(across) / 9, across / 16 + float(fir.number) * 3.7F, 3, 212);
    const float reach = fir.height * 0.19F * std::pow(down, 0.85F) * whorls * ragged;
    const float trunk = fir.height * 0.011F * (0.3F + down);
    return std::max(clamped((reach - std::fabs(across)) * 0.6F + 0.5F),
                    clamped(trunk - std::fabs(across) + 0.5F));
}

void paintFir(Canvas& canvas, const Fir& fir, Rgb light, float mistFrom) {
    const int left = std::max(int(fir.middle - fir.height * 0.30F), 0);
    const int right = std::min(int(fir.middle + fir.height * 0.30F), canvas.width() - 1);
    const int bottom = std::min(int(fir.foot), canvas.height() - 1);
    for (int y = std::max(int(fir.foot - fir.height), 0); y <= bottom; ++y) {
        const float mist = ramp(mistFrom, 1.0F, (float(y) - fir.foot + fir.height) / fir.height);
        for (int x = left; x <= right; ++x) {
            const float cover = firCover(fir, float(x), float(y));
            if (cover > 0)
                canvas.at(x, y) = mix(canvas.at(x, y), mix(light, canvas.at(x, y), mist), cover);
        }
    }
}

/// One row of the wood on its slope, from the farthest (0) to the nearest.
void paintRow(Canvas& canvas, int layer) {
    const float near = float(layer) / (layers - 1);
    const Rgb dark = mix(Rgb{0.030F, 0.042F, 0.040F}, Rgb{0.006F, 0.010F, 0.008F}, near);
    const Rgb light = mix(fog * 0.62F, dark, 0.10F + 0.90F * std::pow(near, 0.8F));
    const float spacing = 34 + 120 * near * near;
    Dice dice(220 + std::uint32_t(layer));
    for (float x = -60; x < float(canvas.width()) + 60; x += spacing * dice.between(0.45F, 1.25F)) {
        const float slope = 0.30F + 0.80F * near + 0.13F * std::sin(x / 420 + float(layer) * 1.9F);
        const float height = (150 + 560 * near * near) * dice.between(0.6F, 1.15F);
        const Fir fir{x, slope * float(canvas.height()), height, dice.between(-6, 6),
                      int(dice.next() * 1000)};
        paintFir(canvas, fir, light, 0.25F + 0.55F * near);
    }
}

} // namespace

QImage foggyForest() {
    Canvas canvas(1200, 1600);
    expose(canvas, [&](float x, float y) { return fogLight(canvas, x, y); });
    for (int layer = 0; layer < layers; ++layer)
        paintRow(canvas, layer);
    return develop(std::move(canvas), {1.15F, 0.10F, 0.4F, 0.03F, 0.45F, false, 10});
}

} // namespace tarsel::samples
