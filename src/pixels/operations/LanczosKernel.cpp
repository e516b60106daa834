// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/LanczosKernel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace tarsel::operations {

namespace {

constexpr double Lobes = 3;
constexpr int One = AxisWeights::One;

/// sinc(x) * sinc(x / 3) inside the lobes (C. E. Duchon, "Lanczos Filtering in One and Two Dimensions").
double lanczos(double x) {
    if (x == 0)
        return 1;
    if (std::abs(x) >= Lobes)
        return 0;
    const double angle = std::numbers::pi * x;
    return Lobes * std::sin(angle) * std::sin(angle / Lobes) / (angle * angle);
}

/// To whole parts of One; what rounding leaves over goes to the largest weight.
void quantise(const std::vector<double>& exact, std::int16_t* weights) {
    const double sum = std::accumulate(exact.begin(), exact.end(), 0.0);
    int rest = One;
    for (std::size_t i = 0; i < exact.size(); ++i) {
        weights[i] = std::int16_t(std::lround(exact[i] / sum * One));
        rest -= weights[i];
    }
    const auto largest = std::max_element(weights, weights + exact.size());
    *largest = std::int16_t(*largest + rest);
}

} // namespace

AxisWeights lanczosWeights(int sourceLength, int reducedBy, int targetLength) {
    const double step = double(sourceLength) / reducedBy / targetLength;
    const int available = sourceLength / reducedBy;
    const double widening = std::max(1.0, step);
    const int wantedTaps = int(std::ceil(2 * Lobes * widening)) + 1;
    AxisWeights result;
    result.taps = std::min(available, wantedTaps);
    result.first.resize(std::size_t(targetLength));
    result.weights.resize(std::size_t(targetLength) * std::size_t(result.taps));
    std::vector<double> exact(std::size_t(result.taps), 0.0);
    for (int i = 0; i < targetLength; ++i) {
        const double centre = (i + 0.5) * step - 0.5;
        const int wanted = int(std::ceil(centre - Lobes * widening));
        const int first = std::clamp(wanted, 0, available - result.taps);
        std::fill(exact.begin(), exact.end(), 0.0);
        for (int place = wanted; place < wanted + wantedTaps; ++place) // outside, the last value repeats
            exact[std::size_t(std::clamp(place - first, 0, result.taps - 1))] +=
                lanczos((place - centre) / widening);
        result.first[std::size_t(i)] = first;
        quantise(exact, result.weights.data() + std::size_t(i) * std::size_t(result.taps));
    }
    return result;
}

} // namespace tarsel::operations
