// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/operations/Vectorised.h"

#include <cstdint>

namespace tarsel::operations {

/// By value and in one type: the compiler has vector instructions for just these.
TARSEL_INLINED std::int16_t clampTo(std::int16_t lowest, std::int16_t value, std::int16_t highest) {
    const std::int16_t cut = value < highest ? value : highest;
    return cut > lowest ? cut : lowest;
}

TARSEL_INLINED std::uint8_t clampedToByte(std::int16_t value) {
    return std::uint8_t(clampTo(0, value, 255));
}

/// The upper half of the product of two 16-bit numbers.
TARSEL_INLINED std::int16_t upperHalf(std::int16_t a, std::int16_t b) {
    return std::int16_t((std::int32_t(a) * b) >> 16);
}

TARSEL_INLINED std::uint16_t upperHalf(std::uint16_t a, std::uint16_t b) {
    return std::uint16_t((std::uint32_t(a) * b) >> 16);
}

} // namespace tarsel::operations
