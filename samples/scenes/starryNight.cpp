// SPDX-License-Identifier: GPL-3.0-or-later
#include "samples/Film.h"
#include "samples/Ground.h"
#include "samples/Noise.h"
#include "samples/Scenes.h"

#include <numbers>

namespace tarsel::samples {

namespace {

/// Where a pixel is in the band of the galaxy: along it, and away from its middle, in band widths.
struct BandPlace {
    float along;
    float away;
};

BandPlace bandPlace(const Canvas& canvas, float x, float y) {
    const float u = x / float(canvas.width()) - 0.56F;
    const float v = y / float(canvas.width()) - 0.30F;
    const float along = u * 0.48F + v * -0.88F;
    const float bend = 0.10F * (fractal(along * 3 + 5, 0.5F, 3, 70) - 0.5F);
    return {along, (u * 0.88F + v * 0.48F + bend) / 0.16F};
}

Rgb galaxy(BandPlace place) {
    const float x = place.along * 9;
    const float y = place.away * 1.5F;
    const float clouds = fractal(x, y, 6, 71);
    const float dust = fractal(x * 1.3F + 2 * clouds, y * 1.3F, 6, 72);
    const float lane = ramp(0.40F, 0.72F, dust) * std::exp(-3 * place.away * place.away);
    const float core =
        std::exp(-place.away * place.away * 1.4F) * (0.35F + 1.1F * clouds) * (1 - 0.7F * lane);
    const Rgb color =
        mix(Rgb{0.36F, 0.42F, 0.62F}, Rgb{0.80F, 0.58F, 0.46F}, std::exp(-place.away * place.away * 5));
    return color * (core * core * 0.24F);
}

/// Air glow near the horizon, green below and blue above.
Rgb nightSky(const Canvas& canvas, float x, float y) {
    const float height = 1 - y / float(canvas.height());
    const Rgb low =
        mix(Rgb{0.10F, 0.12F, 0.10F}, Rgb{0.16F, 0.10F, 0.06F}, ramp(0.5F, 0, x / float(canvas.width())));
    return mix(low, Rgb{0.011F, 0.018F, 0.042F}, ramp(0.10F, 0.75F, height));
}

void addStar(Canvas& canvas, float x, float y, float light, Rgb color) {
    const float radius = 0.62F + std::min(light * 0.10F, 1.1F);
    const int reach = int(radius * 3) + 1;
    for (int row = int(y) - reach; row <= int(y) + reach; ++row)
        for (int column = int(x) - reach; column <= int(x) + reach; ++column) {
            if (row < 0 || column < 0 || row >= canvas.height() || column >= canvas.width())
                continue;
            const float dx = float(column) - x;
            const float dy = float(row) - y;
            canvas.at(column, row) += color * (light * std::exp(-(dx * dx + dy * dy) / (radius * radius)));
        }
}

/// Many faint stars, few bright ones, more of them along the band.
void addStars(Canvas& canvas, int count) {
    Dice dice(73);
    for (int i = 0; i < count; ++i) {
        const float x = dice.between(0, float(canvas.width()));
        const float y = dice.between(0, float(canvas.height()));
        const BandPlace place = bandPlace(canvas, x, y);
        const float crowd = 0.35F + std::exp(-place.away * place.away);
        const float light = std::min(0.05F / std::pow(dice.next() + 0.0012F, 0.85F), 9.0F);
        const float warmth = dice.next();
        if (dice.next() < crowd)
            addStar(canvas, x, y, light,
                    mix(Rgb{0.72F, 0.84F, 1.15F}, Rgb{1.15F, 0.88F, 0.66F}, warmth * warmth));
    }
}

/// Height of the wood's edge above the ground line, in pixels: firs of many sizes.
float firLine(float x) {
    float top = 0;
    for (int layer = 0; layer < 3; ++layer) {
        const float spacing = 26.0F + 17 * float(layer);
        const int first = int(x / spacing) - 3;
        for (int i = first; i <= first + 6; ++i) {
            const float middle = (float(i) + chance(i, layer, 75)) * spacing;
            const float height = 40 + 110 * chance(i, layer, 76) * chance(i, layer, 77);
            const float distance = std::fabs(x - middle);
            const float branches = 0.8F + 0.45F * bump(distance * 0.5F, float(i) * 9.7F, 78).value;
            top = std::max(top, height - distance * 5.2F * branches);
        }
    }
    return top;
}

void paintWood(Canvas& canvas) {
    for (int x = 0; x < canvas.width(); ++x) {
        const float hill = 0.93F - 0.07F * std::sin(float(x) / float(canvas.width()) * 2.4F + 0.5F);
        const float line = hill * float(canvas.height()) - 30 * fractal(float(x) / 300, 0, 4, 79);
        const float top = line - firLine(float(x));
        for (int y = std::max(int(top), 0); y < canvas.height(); ++y) {
            const float cover = clamped(float(y + 1) - top);
            canvas.at(x, y) = mix(canvas.at(x, y), Rgb{0.0035F, 0.0045F, 0.006F}, cover);
        }
    }
}

} // namespace

QImage starryNight() {
    Canvas canvas(1600, 1200);
    expose(canvas,
           [&](float x, float y) { return nightSky(canvas, x, y) + galaxy(bandPlace(canvas, x, y)); });
    addStars(canvas, 15000);
    paintWood(canvas);
    return develop(std::move(canvas), {1.6F, 0.10F, 0.45F, 0.045F, 0.45F, false, 6});
}

} // namespace tarsel::samples
