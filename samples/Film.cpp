// SPDX-License-Identifier: GPL-3.0-or-later
#include "Film.h"

#include "Noise.h"

#include <QColor>

namespace tarsel::samples {

namespace {

constexpr int bloomScale = 8;

/// One pass of a running mean along a line of `count` pixels, `stride` apart.
void meanAlong(Rgb* line, int count, int stride, int radius, std::vector<Rgb>& copy) {
    for (int i = 0; i < count; ++i)
        copy[i] = line[std::ptrdiff_t(i) * stride];
    const auto edge = [&](int i) { return copy[std::clamp(i, 0, count - 1)]; };
    Rgb sum;
    for (int i = -radius; i <= radius; ++i)
        sum += edge(i);
    const float share = 1.0F / float(2 * radius + 1);
    for (int i = 0; i < count; ++i) {
        line[std::ptrdiff_t(i) * stride] = sum * share;
        sum += edge(i + radius + 1) + edge(i - radius) * -1.0F;
    }
}

Canvas reduced(const Canvas& canvas, int factor) {
    Canvas small((canvas.width() + factor - 1) / factor, (canvas.height() + factor - 1) / factor);
    const float share = 1.0F / float(factor * factor);
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x)
            small.at(x / factor, y / factor) += canvas.at(x, y) * share;
    return small;
}

void addStrayLight(Canvas& canvas, float share) {
    Canvas near = reduced(canvas, bloomScale);
    Canvas far = near;
    soften(near, 3);
    soften(far, canvas.width() / bloomScale / 12);
    for (int y = 0; y < canvas.height(); ++y)
        for (int x = 0; x < canvas.width(); ++x) {
            const float u = (float(x) + 0.5F) / bloomScale - 0.5F;
            const float v = (float(y) + 0.5F) / bloomScale - 0.5F;
            const Rgb stray = near.between(u, v) * 0.6F + far.between(u, v) * 0.4F;
            canvas.at(x, y) = mix(canvas.at(x, y), stray, share);
        }
}

float fallOff(const Canvas& canvas, int x, int y, float strength) {
    const float dx = (float(x) / float(canvas.width()) - 0.5F) * 2;
    const float dy = (float(y) / float(canvas.height()) - 0.5F) * 2;
    return 1 - strength * ramp(0.3F, 1.5F, std::sqrt(dx * dx + dy * dy));
}

/// Bright light saturates like film; the result is a tone from 0 to 1 as the eye counts.
float tone(float light, float contrast) {
    const float linear = 1 - std::exp(-std::max(light, 0.0F));
    const float even = linear <= 0.0031308F ? 12.92F * linear : 1.055F * std::pow(linear, 1 / 2.4F) - 0.055F;
    return mix(even, even * even * (3 - 2 * even), contrast);
}

/// Tones by a table over the square root of light, which is fine enough where the curve is steep.
class ToneCurve {
public:
    explicit ToneCurve(float contrast) {
        for (std::size_t i = 0; i < m_tones.size(); ++i) {
            const float root = float(i) / steps;
            m_tones[i] = tone(root * root, contrast);
        }
    }
    float of(float light) const {
        const float place = std::sqrt(std::max(light, 0.0F)) * steps;
        return m_tones[std::min(std::size_t(place + 0.5F), m_tones.size() - 1)];
    }

private:
    static constexpr float steps = 1024;
    std::vector<float> m_tones = std::vector<float>(4096);
};

/// Clumps of silver: coarse and fine noise about 0.
float grainAt(int x, int y, std::uint32_t seed) {
    const float fine = chance(x, y, seed) + chance(x, y, seed + 1) - 1;
    const float coarse = chance(x / 2, y / 2, seed + 2) + chance((x + 1) / 2, (y + 1) / 2, seed + 3) - 1;
    return 0.6F * fine + 0.6F * coarse;
}

int level(float tone) {
    return int(clamped(tone) * 255 + 0.5F);
}

} // namespace

void soften(Canvas& canvas, int radius) {
    std::vector<Rgb> copy(std::max(canvas.width(), canvas.height()));
    for (int pass = 0; pass < 3; ++pass) {
        for (int y = 0; y < canvas.height(); ++y)
            meanAlong(&canvas.at(0, y), canvas.width(), 1, radius, copy);
        for (int x = 0; x < canvas.width(); ++x)
            meanAlong(&canvas.at(x, 0), canvas.height(), canvas.width(), radius, copy);
    }
}

QImage develop(Canvas canvas, const Film& film) {
    addStrayLight(canvas, film.bloom);
    const ToneCurve curve(film.contrast);
    QImage picture(canvas.width(), canvas.height(), QImage::Format_RGB32);
    for (int y = 0; y < canvas.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < canvas.width(); ++x) {
            Rgb light = canvas.at(x, y) * (film.exposure * fallOff(canvas, x, y, film.vignette));
            if (film.gray)
                light.r = light.g = light.b = luminance(light);
            const Rgb tones{curve.of(light.r), curve.of(light.g), curve.of(light.b)};
            const float middle = luminance(tones);
            const float grain = grainAt(x, y, film.seed) * film.grain * (0.4F + 2.4F * middle * (1 - middle));
            line[x] = qRgb(level(tones.r + grain), level(tones.g + grain), level(tones.b + grain));
        }
    }
    return film.gray ? picture.convertToFormat(QImage::Format_Grayscale8) : picture;
}

} // namespace tarsel::samples
