// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Crop.h"

#include "pixels/operations/Fill.h"

#include <algorithm>
#include <cstring>

namespace tarsel::operations {

void crop(ConstPixelView source, PixelView target, int left, int top, Rgb background) {
    const auto firstInside = int(std::clamp<std::int64_t>(-std::int64_t(left), 0, target.width));
    const auto endInside =
        int(std::clamp<std::int64_t>(std::int64_t(source.width) - left, firstInside, target.width));
    const auto bytes = std::size_t(endInside - firstInside) * std::size_t(source.channels);
    for (int y = 0; y < target.height; ++y) {
        const std::int64_t from = std::int64_t(top) + y;
        if (from < 0 || from >= source.height) {
            fillPixels(target.row(y), target.width, target.channels, background);
            continue;
        }
        fillPixels(target.row(y), firstInside, target.channels, background);
        if (bytes)
            std::memcpy(target.pixel(firstInside, y), source.pixel(left + firstInside, int(from)), bytes);
        fillPixels(target.pixel(endInside, y), target.width - endInside, target.channels, background);
    }
}

} // namespace tarsel::operations
