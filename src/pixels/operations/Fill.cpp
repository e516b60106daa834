// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Fill.h"

#include <algorithm>
#include <cstring>

namespace tarsel::operations {

void fillPixels(std::uint8_t* pixel, int count, int channels, Rgb color) {
    if (count <= 0)
        return;
    const std::uint8_t values[4] = {color.red, color.green, color.blue, 255};
    std::memcpy(pixel, values, std::size_t(channels));
    const auto size = std::size_t(count) * std::size_t(channels);
    for (auto done = std::size_t(channels); done < size; done *= 2)
        std::memcpy(pixel + done, pixel, std::min(done, size - done));
}

void fill(PixelView target, Rgb color) {
    for (int y = 0; y < target.height; ++y)
        fillPixels(target.row(y), target.width, target.channels, color);
}

} // namespace tarsel::operations
