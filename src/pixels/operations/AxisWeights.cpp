// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/AxisWeights.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tarsel::operations {

namespace {

constexpr int one = AxisWeights::one;

/// To integer parts of `one`; the remainder of rounding goes to the largest weight.
void quantise(const std::vector<double>& exact, std::int16_t* weights) {
    const double sum = std::accumulate(exact.begin(), exact.end(), 0.0);
    int rest = one;
    for (std::size_t i = 0; i < exact.size(); ++i) {
        weights[i] = std::int16_t(std::lround(exact[i] / sum * one));
        rest -= weights[i];
    }
    const auto largest = std::max_element(weights, weights + exact.size());
    *largest = std::int16_t(*largest + rest);
}

} // namespace

AxisWeights axisWeights(int sourceLength, int targetLength, const AxisFilter& filter) {
    const int wantedTaps = int(std::ceil(2 * filter.radius)) + 1;
    AxisWeights result;
    result.taps = std::min(sourceLength, wantedTaps);
    result.first.resize(std::size_t(targetLength));
    result.weights.resize(std::size_t(targetLength) * std::size_t(result.taps));
    std::vector<double> exact(std::size_t(result.taps), 0.0);
    for (int i = 0; i < targetLength; ++i) {
        const double centre = (i + 0.5) * filter.step - 0.5 - filter.offset;
        const int wanted = int(std::ceil(centre - filter.radius));
        const int first = std::clamp(wanted, 0, sourceLength - result.taps);
        std::fill(exact.begin(), exact.end(), 0.0);
        for (int place = wanted; place < wanted + wantedTaps; ++place)
            exact[std::size_t(std::clamp(place - first, 0, result.taps - 1))] +=
                filter.kernel(place - centre);
        result.first[std::size_t(i)] = first;
        quantise(exact, result.weights.data() + std::size_t(i) * std::size_t(result.taps));
    }
    return result;
}

} // namespace tarsel::operations
