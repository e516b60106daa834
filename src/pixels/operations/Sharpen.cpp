// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Sharpen.h"

#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr double AmountPerLevel = 0.3;

TARSEL_VECTORISED void addRows(const std::uint8_t* up, const std::uint8_t* middle, const std::uint8_t* down,
                               std::uint16_t* __restrict sums, int size) {
    for (int i = 0; i < size; ++i)
        sums[i] = std::uint16_t(up[i] + 2 * middle[i] + down[i]);
}

/// `sums` begins one pixel left of the row. Sixteen times a value is its scale here; `factor` is the amount
/// in 1/8192, and the upper 16 bits of the product with eight times the detail remain.
TARSEL_VECTORISED void addDetail(const std::uint8_t* __restrict in, const std::uint16_t* __restrict sums,
                                 std::uint8_t* __restrict out, int size, int channels, std::int16_t factor) {
    const std::uint16_t* middle = sums + channels;
    const std::uint16_t* right = middle + channels;
    for (int i = 0; i < size; ++i) {
        const auto value = std::int16_t(16 * in[i]);
        const auto mean = std::int16_t(sums[i] + 2 * middle[i] + right[i]);
        const auto detail = std::int16_t(std::int16_t(value - mean) * 8);
        const auto result = std::int16_t(value + upperHalf(detail, factor) + 8);
        out[i] = clampedToByte(std::int16_t(result >> 4));
    }
}

void repeatEnds(std::vector<std::uint16_t>& sums, std::ptrdiff_t channels) {
    std::copy_n(sums.begin() + channels, channels, sums.begin());
    std::copy_n(sums.end() - 2 * channels, channels, sums.end() - channels);
}

void keepAlpha(const std::uint8_t* in, std::uint8_t* out, int size) {
    for (int i = 3; i < size; i += 4)
        out[i] = in[i];
}

} // namespace

void sharpen(ConstPixelView source, PixelView target, int level) {
    const int size = source.width * source.channels;
    const auto factor = std::int16_t(std::lround(std::clamp(level, 1, 10) * AmountPerLevel * 8192));
    std::vector<std::uint16_t> sums(std::size_t(size + 2 * source.channels));
    std::vector<std::uint8_t> current(std::size_t(size), 0); // as before, where the target is the source
    std::vector<std::uint8_t> previous(source.row(0), source.row(0) + size);
    for (int y = 0; y < source.height; ++y) {
        prefetchRow(source, y + 2);
        std::memcpy(current.data(), source.row(y), std::size_t(size));
        const std::uint8_t* down = y + 1 < source.height ? source.row(y + 1) : current.data();
        addRows(previous.data(), current.data(), down, sums.data() + source.channels, size);
        repeatEnds(sums, source.channels);
        addDetail(current.data(), sums.data(), target.row(y), size, source.channels, factor);
        if (source.channels == 4)
            keepAlpha(current.data(), target.row(y), size);
        current.swap(previous);
    }
}

} // namespace tarsel::operations
