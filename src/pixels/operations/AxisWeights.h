// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

namespace tarsel::operations {

/// The weights by which the values along one axis become those of another length. Place i of the result is
/// the sum of `taps` values from place first[i] on, times weights[i * taps ..] / one.
struct AxisWeights {
    static constexpr int bits = 14; ///< single weights can be a little over 1
    static constexpr int one = 1 << bits;

    int taps = 0;
    std::vector<int> first;
    std::vector<std::int16_t> weights;

    const std::int16_t* of(int place) const {
        return weights.data() + std::size_t(place) * std::size_t(taps);
    }
};

/// A symmetrical filter, and where each place of the result has its centre among the source's values: place i
/// at (i + 0.5) * step - 0.5 - offset.
struct AxisFilter {
    std::function<double(double)> kernel; ///< weight at a distance
    double radius = 0;                    ///< beyond it the weight is 0
    double step = 1;
    double offset = 0;
};

/// The weights of `filter` for an axis. Beyond the ends of the source the last value repeats. The weights of
/// each place sum up to `one`.
AxisWeights axisWeights(int sourceLength, int targetLength, const AxisFilter& filter);

} // namespace tarsel::operations
