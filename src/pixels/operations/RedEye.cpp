// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/RedEye.h"

#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

std::uint8_t correctedRed(int red, int green, int blue) {
    const int higher = std::max(green, blue);
    const int excess = std::clamp(2 * red - 3 * higher, 0, higher);
    const int mean = (green + blue) / 2;
    if (higher == 0)
        return 0;
    return std::uint8_t(red + ((mean - red) * excess - higher / 2) / higher);
}

/// How far the region reaches to both sides of its centre in row y.
double reachInRow(const EyeRegion& region, int y) {
    const double halfWidth = (double(region.right) - region.left) / 2;
    if (!region.isEllipse)
        return halfWidth;
    const double halfHeight = (double(region.bottom) - region.top) / 2;
    const double fromCentre = (y + 0.5 - region.top) / halfHeight - 1;
    return halfWidth * std::sqrt(std::max(0.0, 1 - fromCentre * fromCentre));
}

} // namespace

void correctRedEye(PixelView target, const EyeRegion& region) {
    const double centre = (double(region.left) + region.right) / 2;
    for (int y = std::max(region.top, 0); y < std::min(region.bottom, target.height); ++y) {
        const double reach = reachInRow(region, y);
        const int first = int(std::clamp(std::ceil(centre - reach - 0.5), 0.0, double(target.width)));
        const int end = int(std::clamp(std::ceil(centre + reach - 0.5), 0.0, double(target.width)));
        for (int x = first; x < end; ++x) {
            std::uint8_t* pixel = target.pixel(x, y);
            pixel[0] = correctedRed(pixel[0], pixel[1], pixel[2]);
        }
    }
}

} // namespace tarsel::operations
