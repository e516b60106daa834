// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/Flatten.h"

#include <cstring>

namespace tarsel {

void flattenRow(ConstPixelView view, int y, Rgb back, std::uint8_t* rgb) {
    const std::uint8_t* pixel = view.row(y);
    if (view.channels == 3) {
        std::memcpy(rgb, pixel, std::size_t(view.width) * 3);
        return;
    }
    const std::uint8_t under[3] = {back.red, back.green, back.blue};
    for (int x = 0; x < view.width; ++x, pixel += 4)
        for (int c = 0; c < 3; ++c)
            *rgb++ = std::uint8_t((pixel[c] * pixel[3] + under[c] * (255 - pixel[3]) + 127) / 255);
}

} // namespace tarsel
