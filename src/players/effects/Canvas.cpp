// SPDX-License-Identifier: MIT
#include "players/effects/Canvas.h"

#include <algorithm>

namespace tarsel::players {

namespace {

/// Half of `free`, rounded to the even neighbour; 0 where nothing is free.
int margin(int free) {
    if (free <= 0)
        return 0;
    const int half = free / 2;
    return half + (free % 2 & half % 2);
}

} // namespace

std::uint32_t pixelOf(std::int32_t color) {
    const auto bits = std::uint32_t(color);
    return black | (bits & 0xFF) << 16 | (bits & 0xFF00) | (bits >> 16 & 0xFF);
}

Box placeOf(int width, int height, const Canvas& canvas) {
    return {margin(canvas.width - width), margin(canvas.height - height), std::min(width, canvas.width),
            std::min(height, canvas.height)};
}

void fillAround(const Canvas& canvas, const Box& place, std::uint32_t background) {
    for (int y = 0; y < canvas.height; ++y) {
        std::uint32_t* const row = canvas.row(y);
        const bool isBeside = y >= place.top && y < place.top + place.height;
        std::fill(row, row + (isBeside ? place.left : canvas.width), background);
        if (isBeside)
            std::fill(row + place.left + place.width, row + canvas.width, background);
    }
}

void drawCentred(const Canvas& canvas, const Picture& picture, std::uint32_t background) {
    const Box place = placeOf(picture.width, picture.height, canvas);
    fillAround(canvas, place, background);
    for (int y = 0; y < place.height; ++y)
        std::copy_n(picture.row(y), place.width, canvas.row(place.top + y) + place.left);
}

Canvas partOf(const Canvas& canvas, const Box& box) {
    return {canvas.row(box.top) + box.left, box.width, box.height, canvas.stride};
}

} // namespace tarsel::players
