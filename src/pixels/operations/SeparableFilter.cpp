// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/SeparableFilter.h"

#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <vector>

namespace tarsel::operations {

namespace {

/// Target rows that are filtered together: after the vertical pass their values are turned to lie side by
/// side, and a step of the horizontal pass works on all of them at once.
constexpr int Lanes = 16;
/// Bytes of a row that the vertical pass takes at a time.
constexpr int BlockLength = 128;

/// Bits after the binary point: into the vertical pass, between the passes, after the horizontal one. A
/// product with a weight takes one bit off, and what overshoots finds room in 16 bits.
constexpr int InputBits = 7;
constexpr int MiddleBits = InputBits + AxisWeights::Bits - 15;
constexpr int ResultBits = MiddleBits + AxisWeights::Bits - 15;

/// The product of a value and a weight / 32768, rounded.
TARSEL_INLINED std::int16_t weighted(std::int16_t value, std::int16_t weight) {
    return std::int16_t((((std::int32_t(value) * weight) >> 14) + 1) >> 1);
}

using Tile = std::int16_t[Lanes][BlockLength];

/// Weighted sums down the columns of the source, of which `rows` holds a block, one row after the other.
TARSEL_INLINED void sumRows(const std::int16_t* __restrict rows, const std::int16_t* weights, int taps,
                            std::int16_t* __restrict out) {
    std::int16_t sums[BlockLength] = {};
    for (int k = 0; k < taps; ++k, rows += BlockLength) {
        const std::int16_t weight = weights[k];
        for (int i = 0; i < BlockLength; ++i)
            sums[i] = std::int16_t(sums[i] + weighted(rows[i], weight));
    }
    for (int i = 0; i < BlockLength; ++i)
        out[i] = sums[i];
}

TARSEL_INLINED void widen(const std::uint8_t* __restrict in, int count, std::int16_t* __restrict out) {
    for (int i = 0; i < count; ++i)
        out[i] = std::int16_t(in[i] << InputBits);
}

/// Puts the rows of a tile side by side: value i of row r becomes columns[i * Lanes + r].
TARSEL_INLINED void turnTile(const Tile& tile, int count, std::int16_t* __restrict columns) {
    for (int i = 0; i < count; ++i)
        for (int r = 0; r < Lanes; ++r)
            columns[i * Lanes + r] = tile[r][i];
}

/// Rows of the target, and the rows of the source that they need.
struct Band {
    int top = 0;
    int height = 0;
    int sourceTop = 0;
    int sourceHeight = 0;
};

Band bandAt(int top, int targetHeight, const AxisWeights& rows) {
    Band band{top, std::min(Lanes, targetHeight - top), rows.first[std::size_t(top)], 0};
    band.sourceHeight = rows.first[std::size_t(top + band.height - 1)] + rows.taps - band.sourceTop;
    return band;
}

/// `widened` has room for a block of each row of the source that the band needs.
TARSEL_VECTORISED void filterDown(ConstPixelView source, const AxisWeights& rows, Band band,
                                  std::int16_t* widened, std::int16_t* columns) {
    const int size = source.width * source.channels;
    Tile tile = {};
    for (int at = 0; at < size; at += BlockLength) {
        const int count = std::min(BlockLength, size - at);
        for (int k = 0; k < band.sourceHeight; ++k)
            widen(source.row(band.sourceTop + k) + at, count, widened + std::ptrdiff_t(k) * BlockLength);
        for (int r = 0; r < band.height; ++r) {
            const int row = band.top + r;
            const std::ptrdiff_t first = rows.first[std::size_t(row)] - band.sourceTop;
            sumRows(widened + first * BlockLength, rows.of(row), rows.taps, tile[r]);
        }
        turnTile(tile, count, columns + std::ptrdiff_t(at) * Lanes);
    }
}

/// Weighted sums across, for all channels of a pixel and all rows of a band at once.
template <int Channels>
TARSEL_INLINED void sumColumns(const std::int16_t* __restrict in, const std::int16_t* weights, int taps,
                               std::uint8_t* __restrict out) {
    constexpr int Count = Channels * Lanes;
    std::int16_t sums[Count];
    for (int i = 0; i < Count; ++i)
        sums[i] = 1 << (ResultBits - 1);
    for (int k = 0; k < taps; ++k, in += Count) {
        const std::int16_t weight = weights[k];
        for (int i = 0; i < Count; ++i)
            sums[i] = std::int16_t(sums[i] + weighted(in[i], weight));
    }
    for (int i = 0; i < Count; ++i)
        out[i] = clampedToByte(std::int16_t(sums[i] >> ResultBits));
}

/// `values` gets Lanes bytes for each byte of a row of the target.
TARSEL_VECTORISED void filterAcross(const std::int16_t* columns, std::uint8_t* values, int width,
                                    int channels, const AxisWeights& weights) {
    const std::ptrdiff_t step = std::ptrdiff_t(channels) * Lanes;
    for (int x = 0; x < width; ++x) {
        const std::int16_t* in = columns + weights.first[std::size_t(x)] * step;
        if (channels == 3)
            sumColumns<3>(in, weights.of(x), weights.taps, values + x * step);
        else
            sumColumns<4>(in, weights.of(x), weights.taps, values + x * step);
    }
}

void putRows(const std::uint8_t* values, PixelView target, Band band) {
    constexpr int Together = 64; // as many lines as stay in the nearest cache while every row picks its own
    const int size = target.width * target.channels;
    for (int at = 0; at < size; at += Together)
        for (int r = 0; r < band.height; ++r) {
            std::uint8_t* out = target.row(band.top + r);
            for (int i = at; i < std::min(size, at + Together); ++i)
                out[i] = values[std::ptrdiff_t(i) * Lanes + r];
        }
}

} // namespace

void separableFilter(ConstPixelView source, PixelView target, const AxisWeights& columns,
                     const AxisWeights& rows) {
    const auto lanes = std::size_t(Lanes) * std::size_t(source.channels);
    std::vector<std::int16_t> turned(lanes * std::size_t(source.width));
    std::vector<std::uint8_t> values(lanes * std::size_t(target.width));
    std::vector<std::int16_t> widened;
    int fetched = 0;
    for (int top = 0; top < target.height; top += Lanes) {
        const Band band = bandAt(top, target.height, rows);
        widened.resize(std::max(widened.size(), std::size_t(band.sourceHeight) * BlockLength));
        for (; fetched < band.sourceTop + band.sourceHeight; ++fetched)
            prefetchRow(source, fetched);
        filterDown(source, rows, band, widened.data(), turned.data());
        filterAcross(turned.data(), values.data(), target.width, target.channels, columns);
        putRows(values.data(), target, band);
    }
}

} // namespace tarsel::operations
