// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <cstdint>

namespace tarsel {

/// A colour as rows, records and the boxes carry it: red in the low byte, then green, then blue. With the top
/// bit set, a system colour by the index in the low byte.
using Color = qint32;

struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    bool operator==(const Rgb&) const = default;
};

constexpr Color colorOf(Rgb rgb) {
    return rgb.red | rgb.green << 8 | rgb.blue << 16;
}

/// The real colour. System colours 8 (window text) and 9 (caption text) are black, 14 (highlight text) is
/// white, 15 the button colour; any other is black.
Rgb resolveColor(Color color);

/// What resolveColor returns for system colour 15 from now on (the palette's, once there is one).
void setButtonColor(Rgb color);

} // namespace tarsel
