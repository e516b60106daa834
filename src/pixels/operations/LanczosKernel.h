// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace tarsel::operations {

/// The weights by which the values along one axis become those of another length. Place i of the result is
/// the sum of `taps` values from place first[i] on, times weights[i * taps ..] / One.
struct AxisWeights {
    static constexpr int Bits = 14; ///< single weights can be a little over 1
    static constexpr int One = 1 << Bits;

    int taps = 0;
    std::vector<int> first;
    std::vector<std::int16_t> weights;

    const std::int16_t* of(int place) const {
        return weights.data() + std::size_t(place) * std::size_t(taps);
    }
};

/// Lanczos weights with three lobes; a reduction widens them by its factor. The source may have been reduced
/// by a whole factor before, to sourceLength / reducedBy values, which need not come out even. Beyond the
/// ends, the last value repeats. The weights of each place sum up to One.
AxisWeights lanczosWeights(int sourceLength, int reducedBy, int targetLength);

} // namespace tarsel::operations
