// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/QuarterTurn.h"

#include "pixels/operations/Bands.h"

#include <algorithm>
#include <cstring>

namespace tarsel::operations {

namespace {

/// Side of the squares that are turned one after the other: rows of both pictures stay in the cache.
constexpr int tileSide = 32;

/// `from` is the pixel that becomes the square's top left one, `step` the way to the one on its right,
/// `lineStep` to the one below.
template <int Channels>
void turnTile(const std::uint8_t* from, std::ptrdiff_t step, std::ptrdiff_t lineStep, PixelView target,
              int left, int top) {
    const int right = std::min(target.width, left + tileSide);
    const int bottom = std::min(target.height, top + tileSide);
    for (int y = top; y < bottom; ++y) {
        const std::uint8_t* in = from + (y - top) * lineStep;
        std::uint8_t* out = target.pixel(left, y);
        for (int x = left; x < right; ++x, in += step, out += Channels)
            std::memcpy(out, in, Channels);
    }
}

} // namespace

void quarterTurn(ConstPixelView source, PixelView target, bool clockwise) {
    const std::ptrdiff_t step = clockwise ? -source.stride : source.stride;
    const std::ptrdiff_t lineStep = clockwise ? source.channels : -source.channels;
    const std::uint8_t* origin =
        clockwise ? source.pixel(0, source.height - 1) : source.pixel(source.width - 1, 0);
    const auto turn = source.channels == 3 ? turnTile<3> : turnTile<4>;
    forBands(target, [&](const Band& band) {
        PixelView part = target;
        part.height = band.end;
        for (int top = band.begin; top < band.end; top += tileSide)
            for (int left = 0; left < target.width; left += tileSide)
                turn(origin + left * step + top * lineStep, step, lineStep, part, left, top);
    });
}

} // namespace tarsel::operations
