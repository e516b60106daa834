// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/AlphaPremultiplication.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/PackedPixel.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <atomic>

namespace tarsel::operations {

namespace {

TARSEL_VECTORISED bool isOpaque(const std::uint8_t* row, int width) {
    PackedPixel all = ~PackedPixel(0);
    for (int x = 0; x < width; ++x)
        all &= packedAt(row + 4 * x);
    return channelOf(all, 3) == 255;
}

TARSEL_INLINED std::int32_t divided(std::int32_t value, float factor) {
    return std::min(255, std::int32_t(float(value) * factor + (0.5F + quotientMargin)));
}

} // namespace

bool hasTransparency(ConstPixelView view) {
    if (view.channels != 4)
        return false;
    std::atomic<bool> found = false;
    forBands(view, [&](const Band& band) {
        for (int y = band.begin; y < band.end && !found; ++y) {
            prefetchRow(view, y + 1);
            if (!isOpaque(view.row(y), view.width))
                found = true;
        }
    });
    return found;
}

TARSEL_VECTORISED void premultiplyPixels(const std::uint8_t* in, std::uint8_t* out, int count) {
    constexpr PackedPixel redAndBlue = 0x00FF00FF;
    TARSEL_INDEPENDENT_STEPS
    for (int x = 0; x < count; ++x) {
        const PackedPixel pixel = packedAt(in + 4 * x);
        const PackedPixel alpha = pixel >> 24;
        const PackedPixel two = (pixel & redAndBlue) * alpha + 0x00800080; // products of 16 bits side by side
        const PackedPixel one = ((pixel >> 8) & 255) * alpha + 0x80;
        putPacked(out + 4 * x, (((two + ((two >> 8) & redAndBlue)) >> 8) & redAndBlue) |
                                   ((one + (one >> 8)) & 0xFF00) | alpha << 24);
    }
}

TARSEL_VECTORISED void unpremultiplyPixels(std::uint8_t* pixels, int count) {
    for (int x = 0; x < count; ++x) {
        const PackedPixel pixel = packedAt(pixels + 4 * x);
        const std::int32_t alpha = channelOf(pixel, 3);
        const float factor = alpha ? 255.0F / float(alpha) : 0.0F;
        putPacked(pixels + 4 * x,
                  packedOf(divided(channelOf(pixel, 0), factor), divided(channelOf(pixel, 1), factor),
                           divided(channelOf(pixel, 2), factor), alpha));
    }
}

void premultiply(ConstPixelView source, PixelView target) {
    forBands(source, [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y) {
            prefetchRow(source, y + 1);
            premultiplyPixels(source.row(y), target.row(y), source.width);
        }
    });
}

} // namespace tarsel::operations
