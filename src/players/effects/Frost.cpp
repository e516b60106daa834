// SPDX-License-Identifier: MIT
#include "players/effects/Frost.h"

namespace tarsel::players {

namespace {

/// The mean of 2 * radius + 1 pixels along a line of `count`, each `step` after the one before; at an end,
/// its pixel counts for those beyond it.
void average(std::uint32_t* line, int count, std::ptrdiff_t step, int radius,
             std::vector<std::uint64_t>& old) {
    old.resize(std::size_t(count));
    for (int i = 0; i < count; ++i)
        old[std::size_t(i)] = spread(line[i * step]);
    const auto at = [&](int i) { return old[std::size_t(std::clamp(i, 0, count - 1))]; };
    std::uint64_t sum = 0; // up to 257 pixels fit into 16 bits
    for (int i = -radius; i < radius; ++i)
        sum += at(i);
    const auto pixels = std::uint64_t(2 * radius + 1);
    for (int i = 0; i < count; ++i) {
        sum += at(i + radius);
        std::uint64_t mean = 0;
        for (const int shift : {0, 16, 32, 48})
            mean |= (sum >> shift & 0xFFFF) / pixels << (shift + 8);
        line[i * step] = gathered(mean);
        sum -= at(i - radius);
    }
}

} // namespace

Picture softened(const Canvas& canvas, const Box& box, int radius) {
    Picture soft{{}, box.width, box.height};
    if (box.width == 0 || box.height == 0)
        return soft;
    soft.pixels.reserve(std::size_t(box.width) * std::size_t(box.height));
    for (int y = 0; y < box.height; ++y) {
        const std::uint32_t* const row = canvas.row(box.top + y) + box.left;
        soft.pixels.insert(soft.pixels.end(), row, row + box.width);
    }
    std::vector<std::uint64_t> old;
    radius = std::min(radius, 127);
    for (int pass = 0; pass < 2; ++pass) {
        for (int y = 0; y < box.height; ++y)
            average(soft.pixels.data() + std::ptrdiff_t(y) * box.width, box.width, 1, radius, old);
        for (int x = 0; x < box.width; ++x)
            average(soft.pixels.data() + x, box.height, box.width, radius, old);
    }
    return soft;
}

} // namespace tarsel::players
