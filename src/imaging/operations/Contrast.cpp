#include "imaging/operations/Contrast.h"

#include "imaging/operations/Vectorised.h"

#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

/// The factor in 16-bit fixed point. With d = 2 * value - 255, an odd number, the result is (d * f + 255)
/// / 2. d is cut to where the result is 0 or 255 anyway, so that products keep as many bits as 16 can hold.
struct Stretch {
    std::int16_t largest = 255; ///< of |d|
    std::int16_t scale = 0;     ///< d is multiplied by this power of two ..
    std::int16_t factor = 0;    ///< .. and by f times another; the upper 16 bits of the product remain
    std::uint16_t middle = 0;   ///< 255 in the scale of the product, and the half for rounding
    int shift = 0;
};

int bitsUpTo(double limit) {
    return int(std::floor(std::log2(limit)));
}

Stretch stretchOf(int level) {
    const int bounded = std::clamp(level, 0, 100);
    const double f = bounded <= 50 ? bounded / 50.0 : bounded < 100 ? 50.0 / (100 - bounded) : 255.0;
    Stretch stretch;
    stretch.largest = std::int16_t(f > 1 ? std::max(1.0, std::ceil(255 / f)) : 255);
    const int dBits = bitsUpTo(32767.0 / stretch.largest);
    const int factorBits = f > 0 ? std::min(15, bitsUpTo(32767.0 / f)) : 15;
    const int productBits = dBits + factorBits - 16;
    stretch.scale = std::int16_t(1 << dBits);
    stretch.factor = std::int16_t(std::lround(f * (1 << factorBits)));
    stretch.middle = std::uint16_t(256 << productBits);
    stretch.shift = productBits + 1;
    return stretch;
}

TARSEL_INLINED std::uint8_t stretched(std::uint8_t value, const Stretch& s) {
    const auto d = std::int16_t(2 * value - 255);
    const std::int16_t cut = std::max(std::int16_t(-s.largest), std::min(s.largest, d));
    const auto product = std::int16_t((std::int32_t(std::int16_t(cut * s.scale)) * s.factor) >> 16);
    const auto sum = std::int16_t(std::int16_t(product + std::int16_t(s.middle)) >> s.shift);
    return std::uint8_t(std::max(std::int16_t(0), std::min(std::int16_t(255), sum)));
}

TARSEL_INLINED void stretchBytes(const std::uint8_t* in, std::uint8_t* out, int count, const Stretch& stretch,
                                 const BytePattern& chosen) {
    for (int i = 0; i < count; ++i)
        out[i] = std::uint8_t((stretched(in[i], stretch) & chosen[i]) | (in[i] & ~chosen[i]));
}

TARSEL_VECTORISED void stretchRow(const std::uint8_t* in, std::uint8_t* out, int size, Stretch stretch,
                                  const BytePattern& chosen) {
    int at = 0;
    for (; at + PatternLength <= size; at += PatternLength)
        stretchBytes(in + at, out + at, PatternLength, stretch, chosen);
    stretchBytes(in + at, out + at, size - at, stretch, chosen);
}

} // namespace

void contrast(ConstPixelView source, PixelView target, int level, const ColorChannels& channels) {
    const Stretch stretch = stretchOf(level);
    const BytePattern chosen = chosenBytes(channels, source.channels);
    for (int y = 0; y < source.height; ++y)
        stretchRow(source.row(y), target.row(y), source.width * source.channels, stretch, chosen);
}

} // namespace tarsel::operations
