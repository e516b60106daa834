// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"

namespace tarsel::samples {

namespace {

/// A folded curtain of light: where its foot hangs, and how bright its rays are.
struct Curtain {
    float foot; ///< row of its lower edge in the middle, as a share of the height
    float sway; ///< by how much the edge goes up and down
    float strength;
    std::uint32_t seed;
};

constexpr Curtain curtains[] = {
    {0.47F, 0.42F, 1.0F, 90}, {0.26F, 0.40F, 0.7F, 95}, {0.60F, 0.12F, 0.55F, 99}};

Rgb curtainLight(const Curtain& curtain, float u, float v) {
    const float fold = u * 2.3F + 0.55F * fractal(u * 4, 0.7F, 3, curtain.seed + 3);
    const float foot =
        curtain.foot + curtain.sway * (fractal(fold, 0.2F, 3, curtain.seed) - 0.5F) - 0.10F * (u - 0.5F);
    const float above = foot - v + 0.012F * (fractal(u * 60, 0, 2, curtain.seed + 4) - 0.5F);
    if (above < -0.05F)
        return {};
    const float rays = 0.35F + 1.3F * fractal(fold * 16 + above * 0.6F, 0.4F, 4, curtain.seed + 1) *
                                   fractal(fold * 3.1F, 2.4F, 2, curtain.seed + 2) * 1.6F;
    const float height = 0.05F + 0.17F * fractal(fold * 2.6F, 5.1F, 2, curtain.seed + 5);
    const float glow = ramp(-0.05F, 0.012F, above) * std::exp(-std::max(above, 0.0F) / height);
    const Rgb color = mix(Rgb{0.12F, 0.95F, 0.42F}, Rgb{0.42F, 0.16F, 0.62F}, ramp(0.06F, 0.42F, above));
    return color * (glow * rays * rays * curtain.strength * 0.42F);
}

Rgb skyLight(float u, float v) {
    Rgb light = mix(Rgb{0.012F, 0.022F, 0.055F}, Rgb{0.035F, 0.075F, 0.085F}, ramp(0.1F, 0.7F, v));
    for (const Curtain& curtain : curtains)
        light += curtainLight(curtain, u, v);
    return light;
}

void addStars(Canvas& canvas, float horizon) {
    Dice dice(91);
    for (int i = 0; i < 1500; ++i) {
        const int x = int(dice.between(1, float(canvas.width() - 2)));
        const int y = int(dice.between(1, horizon));
        const float light = std::min(0.03F / (dice.next() + 0.01F), 1.6F);
        canvas.at(x, y) += Rgb{0.85F, 0.92F, 1.0F} * light;
        canvas.at(x + 1, y) += Rgb{0.85F, 0.92F, 1.0F} * (light * 0.4F);
        canvas.at(x, y + 1) += Rgb{0.85F, 0.92F, 1.0F} * (light * 0.4F);
    }
}

/// Snow hills on the far shore, lit by the sky alone.
void paintHills(Canvas& canvas, float horizon) {
    for (int x = 0; x < canvas.width(); ++x) {
        const float u = float(x) / float(canvas.width());
        const float top = horizon - 165 * ridged(u * 1.7F + 2.1F, 0.6F, 7, 92) *
                                        (0.35F + 0.65F * std::fabs(u - 0.42F) * 1.6F);
        for (int y = int(top); y < int(horizon); ++y) {
            const float snow = fractal(u * 130 + float(y) * 0.09F, float(y) / 9 - u * 40, 5, 93);
            const float bright = ramp(0.42F, 0.7F, snow) * ramp(0, 60, float(y) - top + 40);
            const Rgb light = mix(Rgb{0.008F, 0.014F, 0.018F}, Rgb{0.05F, 0.12F, 0.10F}, bright);
            canvas.at(x, y) = mix(canvas.at(x, y), light, clamped(float(y + 1) - top));
        }
    }
}

/// Still water: long soft streaks of what is above it.
void paintWater(Canvas& canvas, float horizon) {
    for (int y = int(horizon); y < canvas.height(); ++y) {
        const float near = (float(y) - horizon) / (float(canvas.height()) - horizon);
        for (int x = 0; x < canvas.width(); ++x) {
            const float across = (float(x) / float(canvas.width()) - 0.5F) / (near + 0.05F);
            const float ripple = fractal(across * 14, 30 / (near + 0.05F), 3, 94) - 0.5F;
            const float mirrored = 2 * horizon - float(y) - 1 - std::fabs(ripple) * 160 * near;
            const Rgb light = canvas.between(float(x) + ripple * 50 * near, mirrored);
            canvas.at(x, y) = light * (0.72F - 0.3F * near) + Rgb{0.002F, 0.006F, 0.008F};
        }
    }
}

} // namespace

QImage northernLights() {
    Canvas canvas(1600, 1200);
    const float horizon = 0.70F * float(canvas.height());
    expose(canvas, [&](float x, float y) {
        return y < horizon ? skyLight(x / float(canvas.width()), y / float(canvas.height())) : Rgb{};
    });
    addStars(canvas, horizon - 20);
    paintHills(canvas, horizon);
    paintWater(canvas, horizon);
    return develop(std::move(canvas), {1.5F, 0.14F, 0.4F, 0.04F, 0.45F, false, 8});
}

} // namespace tarsel::samples
