// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/EllipseMask.h"

#include "pixels/operations/Fill.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarsel::operations {

namespace {

constexpr int linesPerRow = 8;

/// How far the ellipse reaches from its vertical axis, on the lines through one row of pixels.
using Reaches = std::array<double, linesPerRow>;

Reaches reachesIn(int y, int width, int height) {
    Reaches reaches{};
    for (int line = 0; line < linesPerRow; ++line) {
        const double fromCentre = (y + (line + 0.5) / linesPerRow) / (height / 2.0) - 1;
        reaches[std::size_t(line)] = width / 2.0 * std::sqrt(std::max(0.0, 1 - fromCentre * fromCentre));
    }
    return reaches;
}

/// The part of pixel x that is inside, in 1/255.
int coverage(int x, double centre, const Reaches& reaches) {
    double inside = 0;
    for (const double reach : reaches)
        inside += std::max(0.0, std::min(x + 1.0, centre + reach) - std::max(double(x), centre - reach));
    return int(std::lround(inside / linesPerRow * 255));
}

void mixPixel(std::uint8_t* pixel, int channels, int inside, Rgb background) {
    const std::uint8_t values[4] = {background.red, background.green, background.blue, 255};
    for (int c = 0; c < channels; ++c)
        pixel[c] = std::uint8_t((pixel[c] * inside + values[c] * (255 - inside) + 127) / 255);
}

} // namespace

void fillOutsideEllipse(PixelView target, Rgb background) {
    const double centre = target.width / 2.0;
    for (int y = 0; y < target.height; ++y) {
        const Reaches reaches = reachesIn(y, target.width, target.height);
        const auto [shortest, longest] = std::minmax_element(reaches.begin(), reaches.end());
        const int outside = std::clamp(int(std::floor(centre - *longest)), 0, target.width);
        const int firstInside =
            std::clamp(int(std::ceil(centre - *shortest)), outside, (target.width + 1) / 2);
        fillPixels(target.row(y), outside, target.channels, background);
        fillPixels(target.pixel(target.width - outside, y), outside, target.channels, background);
        for (int x = outside; x < firstInside; ++x) {
            const int inside = coverage(x, centre, reaches);
            mixPixel(target.pixel(x, y), target.channels, inside, background);
            if (target.width - 1 - x != x)
                mixPixel(target.pixel(target.width - 1 - x, y), target.channels, inside, background);
        }
    }
}

} // namespace tarsel::operations
