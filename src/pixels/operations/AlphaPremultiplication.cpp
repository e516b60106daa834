// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/AlphaPremultiplication.h"

#include "pixels/operations/Vectorised.h"

#include <algorithm>

namespace tarsel::operations {

namespace {

TARSEL_VECTORISED std::uint8_t lowestAlpha(const std::uint8_t* row, int width) {
    std::uint8_t lowest = 255;
    for (int x = 0; x < width; ++x)
        lowest = std::min(lowest, row[4 * x + 3]);
    return lowest;
}

TARSEL_VECTORISED void premultiplyRow(const std::uint8_t* in, std::uint8_t* out, int width) {
    for (int x = 0; x < width; ++x) {
        const unsigned alpha = in[4 * x + 3];
        for (int c = 0; c < 3; ++c)
            out[4 * x + c] = std::uint8_t((in[4 * x + c] * alpha + 127) / 255);
        out[4 * x + 3] = std::uint8_t(alpha);
    }
}

void unpremultiplyPixel(std::uint8_t* pixel) {
    const unsigned alpha = pixel[3];
    if (alpha == 255)
        return;
    for (int c = 0; c < 3; ++c)
        pixel[c] = alpha ? std::uint8_t(std::min(255U, (pixel[c] * 255U + alpha / 2) / alpha)) : 0;
}

} // namespace

bool hasTransparency(ConstPixelView view) {
    for (int y = 0; y < view.height; ++y)
        if (lowestAlpha(view.row(y), view.width) != 255)
            return true;
    return false;
}

void premultiply(ConstPixelView source, PixelView target) {
    for (int y = 0; y < source.height; ++y)
        premultiplyRow(source.row(y), target.row(y), source.width);
}

void unpremultiply(PixelView view) {
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x)
            unpremultiplyPixel(view.pixel(x, y));
}

} // namespace tarsel::operations
