// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/LanczosKernel.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarsel::operations {

namespace {

constexpr double lobes = 3;

/// sinc(x) * sinc(x / 3) inside the lobes (C. E. Duchon, "Lanczos Filtering in One and Two Dimensions").
double lanczos(double x) {
    if (x == 0)
        return 1;
    if (std::abs(x) >= lobes)
        return 0;
    const double angle = std::numbers::pi * x;
    return lobes * std::sin(angle) * std::sin(angle / lobes) / (angle * angle);
}

} // namespace

AxisWeights lanczosWeights(int sourceLength, int reducedBy, int targetLength) {
    const double step = double(sourceLength) / reducedBy / targetLength;
    const double widening = std::max(1.0, step);
    const auto kernel = [widening](double distance) { return lanczos(distance / widening); };
    return axisWeights(sourceLength / reducedBy, targetLength, {kernel, lobes * widening, step, 0});
}

} // namespace tarsel::operations
