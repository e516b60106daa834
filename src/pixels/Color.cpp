// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/Color.h"

#include <atomic>

namespace tarsel {

namespace {

constexpr Rgb white{255, 255, 255};
std::atomic<Color> buttonColor = colorOf({240, 240, 240});

Rgb rgbOf(Color color) {
    return {std::uint8_t(color), std::uint8_t(color >> 8), std::uint8_t(color >> 16)};
}

} // namespace

Rgb resolveColor(Color color) {
    if (color >= 0)
        return rgbOf(color);
    switch (color & 0xFF) {
    case 14:
        return white;
    case 15:
        return rgbOf(buttonColor);
    default:
        return {};
    }
}

void setButtonColor(Rgb color) {
    buttonColor = colorOf(color);
}

} // namespace tarsel
