// SPDX-License-Identifier: GPL-3.0-or-later
#include "artwork/masks/Grain.h"

#include "samples/Noise.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <numeric>
#include <vector>

namespace tarsel::artwork {

namespace {

constexpr int side = 128; ///< of the tile of numbers

using Values = std::vector<float>;

float& at(Values& values, int x, int y) {
    return values[std::size_t(y & (side - 1)) * side + std::size_t(x & (side - 1))];
}

/// The mean round each value, in the shape of a small bell.
Values blurred(Values& values) {
    constexpr float bell[] = {0.06F, 0.24F, 0.40F, 0.24F, 0.06F};
    Values rows(values.size()), result(values.size());
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (int i = -2; i <= 2; ++i)
                at(rows, x, y) += bell[i + 2] * at(values, x + i, y);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            for (int i = -2; i <= 2; ++i)
                at(result, x, y) += bell[i + 2] * at(rows, x, y + i);
    return result;
}

/// Spreads the values evenly over 0 to 1, in their order.
void rank(Values& values) {
    std::vector<std::size_t> order(values.size());
    std::iota(order.begin(), order.end(), std::size_t(0));
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return values[i]; });
    for (std::size_t i = 0; i < order.size(); ++i)
        values[order[i]] = (float(i) + 0.5F) / float(order.size());
}

/// Takes the slow changes out of random numbers again and again.
Values madeGrain() {
    Values values(std::size_t(side) * side);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            at(values, x, y) = samples::chance(x, y, 4);
    for (int round = 0; round < 12; ++round) {
        const Values slow = blurred(values);
        std::ranges::transform(values, slow, values.begin(), std::minus<>());
        rank(values);
    }
    return values;
}

} // namespace

float grainAt(int x, int y) {
    static Values grain = madeGrain();
    return at(grain, x, y);
}

} // namespace tarsel::artwork
