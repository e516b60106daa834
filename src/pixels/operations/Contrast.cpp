// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Contrast.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

/// The factor in 16-bit fixed point. With d = 2 * value - 255, an odd number, the result is (d * f + 255)
/// / 2. d is cut to where the result is 0 or 255 anyway, so that both factors keep as many bits as 16 can
/// hold.
struct Slope {
    std::int16_t largest = 255; ///< of |d|
    std::int16_t scale = 0;     ///< d is multiplied by this power of two ..
    std::int16_t factor = 0;    ///< .. and by f times another; the upper 16 bits of the product remain
};

/// Bits after the binary point of that product.
constexpr int productBits = 4;
constexpr std::int16_t middleAndHalf = 256 << productBits; // 255, and 1 / 2 for rounding after the last shift

Slope stretchOf(int level) {
    const int bounded = std::clamp(level, 0, 100);
    const double f = bounded <= 50 ? bounded / 50.0 : bounded < 100 ? 50.0 / (100 - bounded) : 255.0;
    const double largest = f > 1 ? std::ceil(255 / f) : 255;
    const int scaleBits = int(std::floor(std::log2(32767 / largest)));
    const int factorBits = 16 + productBits - scaleBits;
    return {std::int16_t(largest), std::int16_t(1 << scaleBits),
            std::int16_t(std::lround(std::ldexp(f, factorBits)))};
}

TARSEL_INLINED std::uint8_t stretched(std::uint8_t value, Slope s) {
    const auto d = std::int16_t(2 * value - 255);
    const std::int16_t cut = clampTo(std::int16_t(-s.largest), d, s.largest);
    const auto sum = std::int16_t(upperHalf(std::int16_t(cut * s.scale), s.factor) + middleAndHalf);
    return clampedToByte(std::int16_t(sum >> (productBits + 1)));
}

TARSEL_VECTORISED void stretchRow(const std::uint8_t* in, std::uint8_t* out, const std::uint8_t* chosen,
                                  int size, Slope stretch) {
    TARSEL_INDEPENDENT_STEPS
    for (int i = 0; i < size; ++i)
        out[i] = std::uint8_t((stretched(in[i], stretch) & chosen[i]) | (in[i] & ~chosen[i]));
}

} // namespace

void contrast(ConstPixelView source, PixelView target, int level, const ColorChannels& channels) {
    const Slope stretch = stretchOf(level);
    const std::vector<std::uint8_t> chosen = chosenBytes(channels, source.width, source.channels);
    forBands(source, [&](const Band& band) {
        for (int y = band.begin; y < band.end; ++y) {
            prefetchRow(source, y + 1);
            stretchRow(source.row(y), target.row(y), chosen.data(), int(chosen.size()), stretch);
        }
    });
}

} // namespace tarsel::operations
