// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/GaussianBlur.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr double DeviationPerLevel = 0.5;
constexpr int LargestRadius = 15;
/// Between the two passes a value is kept in 1/128: pairs of them just fit 16 bits.
constexpr int FractionBits = 7;

/// Half a symmetrical kernel in 1/65536, the centre first; the whole sums up to 65536. Each product is cut to
/// its upper 16 bits; `bias` makes up for that in the mean.
struct HalfKernel {
    int radius = 0;
    std::array<std::uint16_t, LargestRadius + 1> weight{};
    std::uint16_t bias = 0;
};

HalfKernel kernelOf(int level) {
    const double deviation = std::clamp(level, 1, 10) * DeviationPerLevel;
    HalfKernel kernel;
    kernel.radius = int(std::ceil(3 * deviation));
    kernel.bias = std::uint16_t((kernel.radius + 1) / 2);
    std::array<double, LargestRadius + 1> bell{};
    double sum = 0;
    for (int k = 0; k <= kernel.radius; ++k) {
        bell[std::size_t(k)] = std::exp(-k * k / (2 * deviation * deviation));
        sum += k ? 2 * bell[std::size_t(k)] : bell[0];
    }
    int rest = 65536;
    for (int k = kernel.radius; k > 0; --k) {
        kernel.weight[std::size_t(k)] = std::uint16_t(std::lround(bell[std::size_t(k)] / sum * 65536));
        rest -= 2 * kernel.weight[std::size_t(k)];
    }
    kernel.weight[0] = std::uint16_t(rest);
    return kernel;
}

/// Bytes that are worked on together: their sums stay in registers or at least in the nearest cache.
constexpr int BlockLength = 128;

TARSEL_INLINED void blurAcross(const std::uint8_t* __restrict in, std::uint16_t* __restrict out, int count,
                               int channels, const HalfKernel& kernel) {
    std::uint16_t sums[BlockLength];
    for (int i = 0; i < count; ++i)
        sums[i] =
            std::uint16_t(kernel.bias + upperHalf(std::uint16_t(in[i] << FractionBits), kernel.weight[0]));
    for (int k = 1; k <= kernel.radius; ++k) {
        const std::uint8_t* left = in - std::ptrdiff_t(k) * channels;
        const std::uint8_t* right = in + std::ptrdiff_t(k) * channels;
        const std::uint16_t weight = kernel.weight[std::size_t(k)];
        for (int i = 0; i < count; ++i)
            sums[i] = std::uint16_t(
                sums[i] +
                upperHalf(std::uint16_t(std::uint16_t(left[i] + right[i]) << FractionBits), weight));
    }
    for (int i = 0; i < count; ++i)
        out[i] = sums[i];
}

/// `in` may be read `radius` pixels to either side of the row.
TARSEL_VECTORISED void blurRow(const std::uint8_t* in, std::uint16_t* out, int size, int channels,
                               const HalfKernel& kernel) {
    int at = 0;
    for (; at + BlockLength <= size; at += BlockLength)
        blurAcross(in + at, out + at, BlockLength, channels, kernel);
    blurAcross(in + at, out + at, size - at, channels, kernel);
}

/// `rows` points at the middle one of 2 * radius + 1 rows.
TARSEL_INLINED void blurDown(const std::uint16_t* const* rows, std::uint8_t* __restrict out, int at,
                             int count, const HalfKernel& kernel) {
    constexpr int Half = 1 << (FractionBits - 1);
    std::uint16_t sums[BlockLength];
    for (int i = 0; i < count; ++i)
        sums[i] = std::uint16_t(kernel.bias + Half + upperHalf(rows[0][at + i], kernel.weight[0]));
    for (int k = 1; k <= kernel.radius; ++k) {
        const std::uint16_t* up = rows[-k] + at;
        const std::uint16_t* down = rows[k] + at;
        const std::uint16_t weight = kernel.weight[std::size_t(k)];
        for (int i = 0; i < count; ++i)
            sums[i] = std::uint16_t(sums[i] + upperHalf(std::uint16_t(up[i] + down[i]), weight));
    }
    for (int i = 0; i < count; ++i)
        out[at + i] = clampedToByte(std::int16_t(sums[i] >> FractionBits));
}

TARSEL_VECTORISED void blurColumns(const std::uint16_t* const* rows, std::uint8_t* out, int size,
                                   const HalfKernel& kernel) {
    int at = 0;
    for (; at + BlockLength <= size; at += BlockLength)
        blurDown(rows, out, at, BlockLength, kernel);
    blurDown(rows, out, at, size - at, kernel);
}

/// The rows blurred across that the present row needs, each computed once.
class RowRing {
public:
    RowRing(ConstPixelView source, const HalfKernel& kernel) :
        m_source(source), m_kernel(kernel), m_size(source.width * source.channels),
        m_margin(kernel.radius * source.channels), m_padded(std::size_t(m_size + 2 * m_margin)),
        m_count(2 * kernel.radius + 1), m_rows(std::size_t(m_count) * std::size_t(m_size)) {}

    void blurUpTo(int y) {
        for (; m_next <= std::min(y, m_source.height - 1); ++m_next) {
            prefetchRow(m_source, m_next + 1);
            pad(m_source.row(m_next));
            blurRow(m_padded.data() + m_margin, slot(m_next), m_size, m_source.channels, m_kernel);
        }
    }

    std::uint16_t* row(int y) { return slot(std::clamp(y, 0, m_source.height - 1)); }

private:
    std::uint16_t* slot(int y) { return m_rows.data() + std::size_t(y % m_count) * std::size_t(m_size); }

    void pad(const std::uint8_t* in) {
        const int channels = m_source.channels;
        std::memcpy(m_padded.data() + m_margin, in, std::size_t(m_size));
        std::uint8_t* left = m_padded.data();
        std::uint8_t* right = left + m_margin + m_size;
        for (int i = 0; i < m_margin; ++i) {
            left[i] = in[i % channels];
            right[i] = in[m_size - channels + i % channels];
        }
    }

    ConstPixelView m_source;
    const HalfKernel& m_kernel;
    int m_size;
    int m_margin;
    std::vector<std::uint8_t> m_padded;
    int m_count;
    std::vector<std::uint16_t> m_rows;
    int m_next = 0;
};

void blurBytes(ConstPixelView source, PixelView target, const HalfKernel& kernel) {
    RowRing ring(source, kernel);
    std::array<const std::uint16_t*, 2 * LargestRadius + 1> rows{};
    const std::uint16_t** middle = rows.data() + LargestRadius;
    for (int y = 0; y < source.height; ++y) {
        ring.blurUpTo(y + kernel.radius);
        for (int k = -kernel.radius; k <= kernel.radius; ++k)
            middle[k] = ring.row(y + k);
        blurColumns(middle, target.row(y), source.width * source.channels, kernel);
    }
}

} // namespace

void gaussianBlur(ConstPixelView source, PixelView target, int level) {
    const HalfKernel kernel = kernelOf(level);
    if (source.channels == 3 || !hasTransparency(source)) {
        blurBytes(source, target, kernel);
        return;
    }
    premultiply(source, target);
    blurBytes(target, target, kernel);
    unpremultiply(target);
}

} // namespace tarsel::operations
