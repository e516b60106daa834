// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/operations/Vectorised.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace tarsel::operations {

/// A pixel of 4 bytes as one number, red lowest and alpha highest. Loops over such numbers are vectorised on
/// every processor, unlike loops over bytes that need the alpha of their pixel.
using PackedPixel = std::uint32_t;
static_assert(std::endian::native == std::endian::little, "red is in the low byte");

TARSEL_INLINED PackedPixel packedAt(const std::uint8_t* pixel) {
    PackedPixel packed = 0;
    std::memcpy(&packed, pixel, sizeof packed);
    return packed;
}

TARSEL_INLINED void putPacked(std::uint8_t* pixel, PackedPixel packed) {
    std::memcpy(pixel, &packed, sizeof packed);
}

/// One channel, 0 (red) to 3 (alpha). Signed numbers turn into floating point faster.
TARSEL_INLINED std::int32_t channelOf(PackedPixel packed, int channel) {
    return std::int32_t((packed >> (8 * channel)) & 255);
}

TARSEL_INLINED PackedPixel packedOf(std::int32_t red, std::int32_t green, std::int32_t blue,
                                    std::int32_t alpha) {
    return PackedPixel(red) | PackedPixel(green) << 8 | PackedPixel(blue) << 16 | PackedPixel(alpha) << 24;
}

/// Exact rounding of product / 255 for products of two bytes.
TARSEL_INLINED std::int32_t dividedBy255(std::int32_t product) {
    const std::int32_t half = product + 128;
    return (half + (half >> 8)) >> 8;
}

/// Added before the fraction of a quotient of integers is cut off: more than the error of single precision,
/// and less than the distance of a quotient by a byte from the next integer.
constexpr float quotientMargin = 1.0F / 1024;

} // namespace tarsel::operations
