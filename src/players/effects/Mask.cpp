// SPDX-License-Identifier: MIT
#include "players/effects/Mask.h"

#include "players/effects/Blend.h"

#include <algorithm>
#include <cmath>

namespace tarsel::players {

namespace {

/// The mask with an empty border.
Mask enlarged(const Mask& mask, int sides, int above, int below) {
    Mask large{mask.left - sides, mask.top - above, mask.width + 2 * sides, mask.height + above + below, {}};
    large.coverage.resize(std::size_t(large.width) * std::size_t(large.height));
    for (int y = 0; y < mask.height; ++y)
        std::copy_n(mask.row(y), mask.width, large.row(y + above) + sides);
    return large;
}

/// The mean of 2 * radius + 1 values along a line of `count` values, each `step` after the one before.
void average(std::uint8_t* line, int count, std::ptrdiff_t step, int radius, std::vector<std::uint8_t>& old) {
    old.assign(std::size_t(count) + std::size_t(2 * radius) + 1, 0);
    for (int i = 0; i < count; ++i)
        old[std::size_t(i + radius)] = line[i * step];
    int sum = 0;
    for (int i = 0; i < 2 * radius; ++i)
        sum += old[std::size_t(i)];
    for (int i = 0; i < count; ++i) {
        sum += old[std::size_t(i + 2 * radius)];
        line[i * step] = std::uint8_t(sum / (2 * radius + 1));
        sum -= old[std::size_t(i)];
    }
}

} // namespace

void drawMask(const Canvas& canvas, const Mask& mask, int x, double y, std::uint32_t color, double opacity) {
    const double floor = std::floor(y);
    const auto lower = unsigned(std::lround((y - floor) * 256)); // the share of the mask's row above
    const auto strength = unsigned(std::lround(opacity * 256));
    const int left = x + mask.left;
    const int top = int(floor) + mask.top;
    const int firstColumn = std::max(0, -left);
    const int endColumn = std::min(mask.width, canvas.width - left);
    const int endRow = std::min(mask.height + 1, canvas.height - top);
    const std::vector<std::uint8_t> nothing(std::size_t(mask.width));
    for (int i = std::max(0, -top); i < endRow; ++i) {
        const std::uint8_t* const above = i > 0 ? mask.row(i - 1) : nothing.data();
        const std::uint8_t* const here = i < mask.height ? mask.row(i) : nothing.data();
        std::uint32_t* const target = canvas.row(top + i) + left;
        for (int j = firstColumn; j < endColumn; ++j) {
            const unsigned coverage = (here[j] * (256 - lower) + above[j] * lower) * strength;
            if (coverage >= 1u << 16)
                target[j] = mixed(target[j], color, (coverage + (coverage >> 8)) >> 16);
        }
    }
}

Mask blurred(const Mask& mask, int radius) {
    Mask soft = enlarged(mask, 2 * radius, 2 * radius, 2 * radius);
    std::vector<std::uint8_t> old;
    for (int pass = 0; pass < 2; ++pass) {
        for (int y = 0; y < soft.height; ++y)
            average(soft.row(y), soft.width, 1, radius, old);
        for (int x = 0; x < soft.width; ++x)
            average(soft.coverage.data() + x, soft.height, soft.width, radius, old);
    }
    return soft;
}

Mask withTrail(const Mask& mask, int length, double strength) {
    Mask trail = enlarged(mask, 0, length, 0);
    const double fading = std::pow(0.02, 1.0 / length); // to 2 % at its upper end
    for (int x = 0; x < trail.width; ++x) {
        double tail = 0;
        for (int y = trail.height - 1; y >= 0; --y) {
            std::uint8_t& coverage = trail.row(y)[x];
            tail = std::max(tail * fading, coverage * strength);
            coverage = std::max(coverage, std::uint8_t(tail));
        }
    }
    return trail;
}

} // namespace tarsel::players
