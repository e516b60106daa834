#include "imaging/operations/ResizeSmooth.h"

#include "imaging/operations/AlphaPremultiplication.h"
#include "imaging/operations/AreaReduction.h"
#include "imaging/operations/LanczosKernel.h"
#include "imaging/operations/Vectorised.h"

#include <algorithm>
#include <vector>

namespace tarsel::operations {

namespace {

/// Between the passes a value is kept in 1/64: 16 bits hold it with all the overshoot of the filter.
constexpr int FractionBits = 6;
constexpr int BlockLength = 256;

/// Values go into the first pass with one bit more, which the rounded product with a weight takes off again.
constexpr int InputBits = FractionBits + 1;
static_assert(InputBits + AxisWeights::Bits - 15 == FractionBits);

TARSEL_INLINED std::int16_t weighted(std::int16_t value, std::int16_t weight) {
    return std::int16_t((((std::int32_t(value) * weight) >> 14) + 1) >> 1);
}

TARSEL_INLINED void sumRows(ConstPixelView source, int firstRow, int at, int count,
                            const std::int16_t* weights, int taps, std::int16_t* __restrict out) {
    std::int16_t sums[BlockLength] = {};
    for (int k = 0; k < taps; ++k) {
        const std::uint8_t* row = source.row(firstRow + k) + at;
        const std::int16_t weight = weights[k];
        for (int i = 0; i < count; ++i)
            sums[i] = std::int16_t(sums[i] + weighted(std::int16_t(row[i] << InputBits), weight));
    }
    for (int i = 0; i < count; ++i)
        out[at + i] = sums[i];
}

TARSEL_VECTORISED void filterDown(ConstPixelView source, int firstRow, const std::int16_t* weights, int taps,
                                  std::int16_t* out) {
    const int size = source.width * source.channels;
    int at = 0;
    for (; at + BlockLength <= size; at += BlockLength)
        sumRows(source, firstRow, at, BlockLength, weights, taps, out);
    sumRows(source, firstRow, at, size - at, weights, taps, out);
}

TARSEL_INLINED std::uint8_t rounded(std::int32_t sum) {
    constexpr int Bits = FractionBits + AxisWeights::Bits;
    return std::uint8_t(std::clamp((sum + (1 << (Bits - 1))) >> Bits, 0, 255));
}

template <int Channels>
void filterAcross(const std::int16_t* in, std::uint8_t* out, int width, const AxisWeights& columns) {
    for (int x = 0; x < width; ++x) {
        const std::int16_t* weights = columns.of(x);
        const std::int16_t* value = in + std::ptrdiff_t(columns.first[std::size_t(x)]) * Channels;
        std::int32_t sums[Channels] = {};
        for (int k = 0; k < columns.taps; ++k, value += Channels)
            for (int c = 0; c < Channels; ++c)
                sums[c] += value[c] * weights[k];
        for (int c = 0; c < Channels; ++c)
            out[x * Channels + c] = rounded(sums[c]);
    }
}

void filter(ConstPixelView source, PixelView target) {
    const AxisWeights rows = lanczosWeights(source.height, target.height);
    const AxisWeights columns = lanczosWeights(source.width, target.width);
    const auto across = source.channels == 3 ? filterAcross<3> : filterAcross<4>;
    std::vector<std::int16_t> sums(std::size_t(source.width) * std::size_t(source.channels));
    for (int y = 0; y < target.height; ++y) {
        filterDown(source, rows.first[std::size_t(y)], rows.of(y), rows.taps, sums.data());
        across(sums.data(), target.row(y), target.width, columns);
    }
}

/// The whole factor between two lengths, or 0 when there is none.
int wholeFactor(int sourceLength, int targetLength) {
    const int factor = sourceLength / targetLength;
    return factor * targetLength == sourceLength && factor <= LargestAreaFactor ? factor : 0;
}

void resample(ConstPixelView source, PixelView target) {
    const int acrossFactor = wholeFactor(source.width, target.width);
    const int downFactor = wholeFactor(source.height, target.height);
    if (acrossFactor && downFactor)
        areaReduction(source, target, acrossFactor, downFactor);
    else
        filter(source, target);
}

} // namespace

void resizeSmooth(ConstPixelView source, PixelView target) {
    if (source.channels == 3 || !hasTransparency(source)) {
        resample(source, target);
        return;
    }
    Picture multiplied(source.width, source.height, source.channels);
    premultiply(source, multiplied.edit());
    resample(multiplied.view(), target);
    unpremultiply(target);
}

} // namespace tarsel::operations
