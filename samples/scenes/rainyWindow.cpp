// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"

namespace tarsel::samples {

namespace {

/// Lamps out of focus are disks with a slightly brighter rim, as a wide open lens draws them.
void addLamp(Canvas& canvas, float x, float y, float radius, Rgb light) {
    for (int row = std::max(int(y - radius) - 1, 0);
         row <= std::min(int(y + radius) + 1, canvas.height() - 1); ++row)
        for (int column = std::max(int(x - radius) - 1, 0);
             column <= std::min(int(x + radius) + 1, canvas.width() - 1); ++column) {
            const float distance = std::hypot(float(column) - x, float(row) - y);
            const float inside = clamped(radius - distance + 0.5F);
            const float rim = 0.75F + 0.45F * ramp(0.75F, 0.97F, distance / radius);
            canvas.at(column, row) += light * (inside * rim);
        }
}

Rgb lampColor(Dice& dice) {
    static constexpr Rgb colors[] = {{1.0F, 0.55F, 0.18F},  {1.0F, 0.70F, 0.35F},  {1.0F, 0.12F, 0.07F},
                                     {0.95F, 0.85F, 0.70F}, {0.20F, 0.85F, 0.60F}, {0.30F, 0.50F, 1.0F},
                                     {1.0F, 0.25F, 0.45F}};
    const float pick = dice.next();
    return colors[std::min(int(pick * pick * 8.2F), 6)];
}

/// A street at dusk: dark blue above, warm below, lamps in a band that narrows with the distance.
Canvas street(int width, int height) {
    Canvas canvas(width, height);
    const auto h = float(height);
    expose(canvas, [&](float x, float y) {
        const float v = y / h;
        const float murk = fractal(x / 260, y / 340, 4, 301);
        const Rgb above = mix(Rgb{0.010F, 0.016F, 0.040F}, Rgb{0.045F, 0.032F, 0.040F}, ramp(0, 0.55F, v));
        return mix(above, Rgb{0.060F, 0.034F, 0.018F}, ramp(0.45F, 0.85F, v)) * (0.5F + murk);
    });
    Dice dice(302);
    for (int i = 0; i < 170; ++i) {
        const float far = dice.next();
        const float spread = mix(0.55F, 0.10F, far);
        const float x = float(width) * (0.5F + (dice.next() - 0.5F) * 1.25F);
        const float y = h * (0.56F + (dice.next() + dice.next() - 1) * spread);
        const float radius = mix(58, 13, far) * dice.between(0.8F, 1.15F);
        addLamp(canvas, x, y, radius, lampColor(dice) * (mix(0.16F, 0.62F, far) * dice.between(0.5F, 1.3F)));
    }
    return canvas;
}

struct Drop {
    float x;
    float y;
    float radius;
    float length; ///< drops on their way down are longer than wide
    std::int32_t number;
};

/// A drop is a small wide-angle lens: it shows the street turned over, with a dark edge and a point of light.
void paintDrop(Canvas& glass, const Canvas& outside, const Drop& drop) {
    const float tall = drop.radius * drop.length;
    for (int y = std::max(int(drop.y - tall) - 1, 0);
         y <= std::min(int(drop.y + tall) + 1, glass.height() - 1); ++y)
        for (int x = std::max(int(drop.x - drop.radius) - 1, 0);
             x <= std::min(int(drop.x + drop.radius) + 1, glass.width() - 1); ++x) {
            const float u = (float(x) - drop.x) / drop.radius;
            const float v = (float(y) - drop.y) / tall;
            const float wobble =
                1 + 0.16F * (fractal(u * 1.4F + float(drop.number), v * 1.4F, 2, 311) - 0.5F) * 2;
            const float distance = std::sqrt(u * u + v * v) * wobble;
            const float cover = clamped((1 - distance) * drop.radius + 0.5F);
            if (cover <= 0)
                continue;
            const float bulge = 0.35F + 0.65F * distance * distance;
            const Rgb seen = outside.between(drop.x - u * bulge * 430, drop.y - v * bulge * 520);
            const float edge = 1 - 0.80F * ramp(0.55F, 1.0F, distance) * (0.6F - 0.4F * v);
            const float sparkle = std::exp(-((u + 0.32F) * (u + 0.32F) + (v + 0.42F) * (v + 0.42F)) * 60);
            const Rgb light = seen * (1.35F * edge) + Rgb{0.55F, 0.55F, 0.60F} * sparkle;
            glass.at(x, y) = mix(glass.at(x, y), light, cover);
        }
}

/// Small drops everywhere, some large ones, and the tracks of those that ran down.
void rain(Canvas& glass, const Canvas& outside) {
    Dice dice(321);
    const auto width = float(glass.width());
    const auto height = float(glass.height());
    for (int i = 0; i < 5200; ++i) {
        const float size = dice.next();
        const float radius = 1.2F + 7.5F * size * size * size * size;
        paintDrop(glass, outside, {dice.between(0, width), dice.between(0, height), radius, 1.05F, i});
    }
    for (int i = 0; i < 95; ++i) {
        const float radius = 7 + 15 * dice.next() * dice.next();
        paintDrop(glass, outside,
                  {dice.between(0, width), dice.between(0, height), radius, dice.between(1.0F, 1.35F), i});
    }
    for (int track = 0; track < 9; ++track) {
        float x = dice.between(40, width - 40);
        const float head = dice.between(height * 0.35F, height * 0.97F);
        for (float y = head - dice.between(250, 800); y < head; y += dice.between(7, 34)) {
            x += dice.between(-2.2F, 2.2F);
            paintDrop(glass, outside, {x, y, dice.between(1.8F, 4.8F), 1.3F, int(y)});
        }
        paintDrop(glass, outside, {x, head, dice.between(12, 19), 1.45F, track});
    }
}

} // namespace

QImage rainyWindow() {
    const Canvas outside = street(1200, 1600);
    Canvas glass = outside;
    soften(glass, 2);
    rain(glass, outside);
    return develop(std::move(glass), {2.1F, 0.14F, 0.45F, 0.035F, 0.5F, false, 11});
}

} // namespace tarsel::samples
