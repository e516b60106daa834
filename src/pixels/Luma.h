// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace tarsel {

/// Weights of gray, in thousandths: the luma of ITU-R BT.601. They are meant for gamma-coded values as
/// picture files store them, and JPEG's gray uses them, so that a picture has the same gray in every format.
inline constexpr int lumaOfRed = 299;
inline constexpr int lumaOfGreen = 587;
inline constexpr int lumaOfBlue = 114;

/// Rounded; a gray pixel keeps its value.
constexpr int lumaOf(const std::uint8_t* rgb) {
    return (lumaOfRed * rgb[0] + lumaOfGreen * rgb[1] + lumaOfBlue * rgb[2] + 500) / 1000;
}

} // namespace tarsel
