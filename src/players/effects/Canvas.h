// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarsel::players {

// Pixels are 0xFFRRGGBB, rows from the top.

/// Pixels that somebody else owns. `stride` counts pixels from one row to the next.
struct Canvas {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0;

    std::uint32_t* row(int y) const { return pixels + y * stride; }
};

/// `width` pixels a row, no gaps.
struct Picture {
    std::vector<std::uint32_t> pixels;
    int width = 0;
    int height = 0;

    const std::uint32_t* row(int y) const { return pixels.data() + std::ptrdiff_t(y) * width; }
    Canvas canvas() { return {pixels.data(), width, height, width}; }
};

struct Box {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    bool operator==(const Box&) const = default;
};

constexpr std::uint32_t black = 0xFF000000;

/// The colour of an options record, 0x00BBGGRR.
std::uint32_t pixelOf(std::int32_t color);

/// The part of the canvas that a picture of this size covers: in the middle, never scaled; a side that is
/// longer than the canvas starts at 0 and is cut at its end.
Box placeOf(int width, int height, const Canvas& canvas);

/// Everything but that part.
void fillAround(const Canvas& canvas, const Box& place, std::uint32_t background);
/// The picture in its place, the background around it.
void drawCentred(const Canvas& canvas, const Picture& picture, std::uint32_t background);
/// The part of `canvas` that `box`, which is inside it, covers.
Canvas partOf(const Canvas& canvas, const Box& box);

} // namespace tarsel::players
