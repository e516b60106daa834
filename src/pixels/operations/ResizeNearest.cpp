// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/ResizeNearest.h"

#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

/// For each place of the target axis, the place of the source axis under its centre.
std::vector<int> nearestPlaces(int sourceLength, int targetLength) {
    std::vector<int> places(std::size_t(targetLength), 0);
    for (int i = 0; i < targetLength; ++i)
        places[std::size_t(i)] =
            int((2 * std::int64_t(i) + 1) * sourceLength / (2 * std::int64_t(targetLength)));
    return places;
}

template <int Channels>
void pickPixels(const std::uint8_t* in, std::uint8_t* out, const std::vector<int>& places) {
    for (const int place : places) {
        std::memcpy(out, in + std::ptrdiff_t(place) * Channels, Channels);
        out += Channels;
    }
}

} // namespace

void resizeNearest(ConstPixelView source, PixelView target) {
    const std::vector<int> columns = nearestPlaces(source.width, target.width);
    const std::vector<int> rows = nearestPlaces(source.height, target.height);
    const auto pick = source.channels == 3 ? pickPixels<3> : pickPixels<4>;
    for (int y = 0; y < target.height; ++y) {
        if (y > 0 && rows[std::size_t(y)] == rows[std::size_t(y - 1)])
            std::memcpy(target.row(y), target.row(y - 1),
                        std::size_t(target.width) * std::size_t(target.channels));
        else
            pick(source.row(rows[std::size_t(y)]), target.row(y), columns);
    }
}

} // namespace tarsel::operations
