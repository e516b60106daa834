// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/GaussianBlur.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/SeparableFilter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr double deviationPerLevel = 0.5;
constexpr double deviationsToCut = 3;

double deviationOf(int level) {
    return std::clamp(level, 1, 10) * deviationPerLevel;
}

double bell(double distance, double deviation) {
    return std::exp(-distance * distance / (2 * deviation * deviation));
}

/// Up to here blurring pixel by pixel is faster than blurring a reduced picture.
constexpr double largestDirectDeviation = 1.5;
constexpr int largestRadius = 5;
/// Between the two passes a value is kept in 1/128: pairs of them just fit 16 bits.
constexpr int fractionBits = 7;

/// Half a symmetrical kernel in 1/65536, the centre first; both halves sum up to 65536. Each product is cut
/// to its upper 16 bits; `bias` makes up for that in the mean.
struct HalfKernel {
    int radius = 0;
    std::array<std::uint16_t, largestRadius + 1> weight{};
    std::uint16_t bias = 0;
};

HalfKernel kernelOf(double deviation) {
    HalfKernel kernel;
    kernel.radius = int(std::ceil(deviationsToCut * deviation));
    kernel.bias = std::uint16_t((kernel.radius + 1) / 2);
    double sum = 1;
    for (int k = 1; k <= kernel.radius; ++k)
        sum += 2 * bell(k, deviation);
    int rest = 65536;
    for (int k = kernel.radius; k > 0; --k) {
        kernel.weight[std::size_t(k)] = std::uint16_t(std::lround(bell(k, deviation) / sum * 65536));
        rest -= 2 * kernel.weight[std::size_t(k)];
    }
    kernel.weight[0] = std::uint16_t(rest);
    return kernel;
}

/// Bytes that are worked on together: their sums stay in registers or at least in the nearest cache.
constexpr int blockLength = 128;

/// The sums of `count` values around `middle`, weighted by their distance from it. The values at distance k
/// are at neighbours(-k) and neighbours(k).
template <class Neighbours>
TARSEL_INLINED void sumAround(const std::uint16_t* middle, Neighbours neighbours, int count,
                              std::uint16_t start, const HalfKernel& kernel, std::uint16_t* __restrict sums) {
    for (int i = 0; i < count; ++i)
        sums[i] = std::uint16_t(start + upperHalf(middle[i], kernel.weight[0]));
    for (int k = 1; k <= kernel.radius; ++k) {
        const std::uint16_t* before = neighbours(-k);
        const std::uint16_t* after = neighbours(k);
        const std::uint16_t weight = kernel.weight[std::size_t(k)];
        for (int i = 0; i < count; ++i)
            sums[i] = std::uint16_t(sums[i] + upperHalf(std::uint16_t(before[i] + after[i]), weight));
    }
}

TARSEL_INLINED void blurAcross(const std::uint16_t* in, std::uint16_t* __restrict out, int count,
                               int channels, const HalfKernel& kernel) {
    std::uint16_t sums[blockLength];
    const auto neighbours = [=](int distance) { return in + std::ptrdiff_t(distance) * channels; };
    sumAround(in, neighbours, count, kernel.bias, kernel, sums);
    for (int i = 0; i < count; ++i)
        out[i] = sums[i];
}

/// `in` may be read `radius` pixels to either side of the row.
TARSEL_VECTORISED void blurRow(const std::uint16_t* in, std::uint16_t* out, int size, int channels,
                               const HalfKernel& kernel) {
    int at = 0;
    for (; at + blockLength <= size; at += blockLength)
        blurAcross(in + at, out + at, blockLength, channels, kernel);
    blurAcross(in + at, out + at, size - at, channels, kernel);
}

/// `rows` points at the middle one of 2 * radius + 1 rows.
TARSEL_INLINED void blurDown(const std::uint16_t* const* rows, std::uint8_t* __restrict out, int at,
                             int count, const HalfKernel& kernel) {
    constexpr int half = 1 << (fractionBits - 1);
    std::uint16_t sums[blockLength];
    const auto neighbours = [=](int distance) { return rows[distance] + at; };
    sumAround(rows[0] + at, neighbours, count, std::uint16_t(kernel.bias + half), kernel, sums);
    for (int i = 0; i < count; ++i)
        out[at + i] = clampedToByte(std::int16_t(sums[i] >> fractionBits));
}

TARSEL_VECTORISED void blurColumns(const std::uint16_t* const* rows, std::uint8_t* out, int size,
                                   const HalfKernel& kernel) {
    int at = 0;
    for (; at + blockLength <= size; at += blockLength)
        blurDown(rows, out, at, blockLength, kernel);
    blurDown(rows, out, at, size - at, kernel);
}

TARSEL_VECTORISED void widen(const std::uint8_t* in, std::uint16_t* __restrict out, int size) {
    for (int i = 0; i < size; ++i)
        out[i] = std::uint16_t(in[i] << fractionBits);
}

/// The rows blurred across that the present row needs, each computed once.
class RowRing {
public:
    RowRing(ConstPixelView source, const BandSource& rows, const Band& band, const HalfKernel& kernel,
            bool transparent) :
        m_source(source),
        m_sourceRows(rows), m_band(band), m_kernel(kernel), m_size(source.width * source.channels),
        m_margin(kernel.radius * source.channels), m_premultiplied(transparent ? std::size_t(m_size) : 0),
        m_padded(std::size_t(m_size + 2 * m_margin)), m_count(2 * kernel.radius + 1),
        m_rows(std::size_t(m_count) * std::size_t(m_size)), m_next(std::max(0, band.begin - kernel.radius)) {}

    void blurUpTo(int y) {
        for (; m_next <= std::min(y, m_source.height - 1); ++m_next) {
            prefetchRow(m_source, m_next + 1);
            pad(premultiplied(m_sourceRows.row(m_band, m_next)));
            blurRow(m_padded.data() + m_margin, slot(m_next), m_size, m_source.channels, m_kernel);
        }
    }

    std::uint16_t* row(int y) { return slot(std::clamp(y, 0, m_source.height - 1)); }

private:
    std::uint16_t* slot(int y) { return m_rows.data() + std::size_t(y % m_count) * std::size_t(m_size); }

    const std::uint8_t* premultiplied(const std::uint8_t* in) {
        if (m_premultiplied.empty())
            return in;
        premultiplyPixels(in, m_premultiplied.data(), m_source.width);
        return m_premultiplied.data();
    }

    void pad(const std::uint8_t* in) {
        const int channels = m_source.channels;
        std::uint16_t* const row = m_padded.data() + m_margin;
        widen(in, row, m_size);
        for (int i = 0; i < m_margin; ++i) {
            m_padded[std::size_t(i)] = row[i % channels];
            row[m_size + i] = row[m_size - channels + i % channels];
        }
    }

    ConstPixelView m_source;
    const BandSource& m_sourceRows;
    Band m_band;
    const HalfKernel& m_kernel;
    int m_size;
    int m_margin;
    std::vector<std::uint8_t> m_premultiplied;
    std::vector<std::uint16_t> m_padded;
    int m_count;
    std::vector<std::uint16_t> m_rows;
    int m_next;
};

void blurBand(RowRing& ring, PixelView target, const Band& band, const HalfKernel& kernel, bool transparent) {
    std::array<const std::uint16_t*, 2 * largestRadius + 1> rows{};
    const std::uint16_t** middle = rows.data() + largestRadius;
    for (int y = band.begin; y < band.end; ++y) {
        ring.blurUpTo(y + kernel.radius);
        for (int k = -kernel.radius; k <= kernel.radius; ++k)
            middle[k] = ring.row(y + k);
        blurColumns(middle, target.row(y), target.width * target.channels, kernel);
        if (transparent)
            unpremultiplyPixels(target.row(y), target.width);
    }
}

void blurDirectly(ConstPixelView source, PixelView target, double deviation, bool transparent) {
    const HalfKernel kernel = kernelOf(deviation);
    const std::vector<Band> bands = bandsOf(source.height, pixelCount(source));
    const BandSource rows(source, bands, kernel.radius);
    forBands(bands, [&](const Band& band) {
        RowRing ring(source, rows, band, kernel, transparent);
        blurBand(ring, target, band, kernel, transparent);
    });
}

/// A blur in two steps: two bell curves in turn make one whose squared deviation is the sum of theirs. The
/// first is computed only at every `factor`th place: of the finest detail that this can't represent, less
/// than 1/1000 passes a curve whose deviation is `minShare` of the distance.
struct ReducedBlur {
    static constexpr double minShare = 0.585;
    double deviation = 1; ///< of each step, in pixels of the picture
    int factor = 1;

    explicit ReducedBlur(double blurDeviation) :
        deviation(blurDeviation / std::numbers::sqrt2), factor(int(deviation / minShare)) {}

    double radius() const { return 3.3 * deviation; }
    /// Places beyond each end that the second step needs.
    int margin() const { return int(std::ceil(radius() / factor + 0.5)); }
    int reducedLength(int length) const { return (length + factor - 1) / factor + 2 * margin(); }

    AxisWeights reduction(int length) const {
        const auto kernel = [d = deviation](double distance) { return bell(distance, d); };
        return axisWeights(length, reducedLength(length),
                           {kernel, radius(), double(factor), double(margin()) * factor});
    }

    AxisWeights enlargement(int length) const {
        const auto kernel = [d = deviation / factor](double distance) { return bell(distance, d); };
        return axisWeights(reducedLength(length), length,
                           {kernel, radius() / factor, 1.0 / factor, -double(margin())});
    }
};

void blurReduced(ConstPixelView source, PixelView target, double deviation, bool transparent) {
    const ReducedBlur blur(deviation);
    Picture reduced(blur.reducedLength(source.width), blur.reducedLength(source.height), source.channels);
    separableFilter(source, reduced.edit(), blur.reduction(source.width), blur.reduction(source.height),
                    {transparent, false});
    separableFilter(reduced.view(), target, blur.enlargement(source.width), blur.enlargement(source.height),
                    {false, transparent});
}

} // namespace

void gaussianBlur(ConstPixelView source, PixelView target, int level) {
    const double deviation = deviationOf(level);
    const auto blur = deviation > largestDirectDeviation ? blurReduced : blurDirectly;
    blur(source, target, deviation, hasTransparency(source));
}

} // namespace tarsel::operations
