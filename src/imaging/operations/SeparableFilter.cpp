#include "imaging/operations/SeparableFilter.h"

#include "imaging/operations/ByteClamp.h"
#include "imaging/operations/RowPrefetch.h"

#include <algorithm>
#include <vector>

namespace tarsel::operations {

namespace {

/// Target rows that are filtered together: after the vertical pass their values are turned to lie side by
/// side, and a step of the horizontal pass works on all of them at once.
constexpr int Lanes = 16;
/// Bytes of a row that the vertical pass takes at a time.
constexpr int BlockLength = 128;

/// Bits behind the point: into the vertical pass, between the passes, after the horizontal one. A product
/// with a weight takes one bit off, and what overshoots finds room in 16 bits.
constexpr int InputBits = 7;
constexpr int MiddleBits = InputBits + AxisWeights::Bits - 15;
constexpr int ResultBits = MiddleBits + AxisWeights::Bits - 15;

/// The product of a value and a weight / 32768, rounded.
TARSEL_INLINED std::int16_t weighted(std::int16_t value, std::int16_t weight) {
    return std::int16_t((((std::int32_t(value) * weight) >> 14) + 1) >> 1);
}

using Tile = std::int16_t[Lanes][BlockLength];

/// One row of a tile: weighted sums down the columns of the source, from byte `at` of its rows on.
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
        out[i] = sums[i];
}

/// Puts the rows of a tile side by side: value i of row r becomes columns[i * Lanes + r].
TARSEL_INLINED void turnTile(const Tile& tile, int count, std::int16_t* __restrict columns) {
    for (int i = 0; i < count; ++i)
        for (int r = 0; r < Lanes; ++r)
            columns[i * Lanes + r] = tile[r][i];
}

struct Band {
    int top = 0;
    int height = 0;
};

TARSEL_VECTORISED void filterDown(ConstPixelView source, const AxisWeights& rows, Band band,
                                  std::int16_t* columns) {
    const int size = source.width * source.channels;
    Tile tile = {};
    for (int at = 0; at < size; at += BlockLength) {
        const int count = std::min(BlockLength, size - at);
        for (int r = 0; r < band.height; ++r) {
            const int y = band.top + r;
            if (count == BlockLength)
                sumRows(source, rows.first[std::size_t(y)], at, BlockLength, rows.of(y), rows.taps, tile[r]);
            else
                sumRows(source, rows.first[std::size_t(y)], at, count, rows.of(y), rows.taps, tile[r]);
        }
        turnTile(tile, count, columns + std::ptrdiff_t(at) * Lanes);
    }
}

/// Weighted sums across, for all rows of a band; `values` has Lanes of them for each byte of a target row.
TARSEL_VECTORISED void filterAcross(const std::int16_t* __restrict columns, std::uint8_t* __restrict values,
                                    int width, int channels, const AxisWeights& weights) {
    for (int x = 0; x < width; ++x)
        for (int c = 0; c < channels; ++c) {
            const std::int16_t* in =
                columns + (std::ptrdiff_t(weights.first[std::size_t(x)]) * channels + c) * Lanes;
            const std::int16_t* weight = weights.of(x);
            std::int16_t sums[Lanes];
            for (int r = 0; r < Lanes; ++r)
                sums[r] = 1 << (ResultBits - 1);
            for (int k = 0; k < weights.taps; ++k, in += channels * Lanes)
                for (int r = 0; r < Lanes; ++r)
                    sums[r] = std::int16_t(sums[r] + weighted(in[r], weight[k]));
            for (int r = 0; r < Lanes; ++r)
                values[r] = clampedToByte(std::int16_t(sums[r] >> ResultBits));
            values += Lanes;
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
    int fetched = 0;
    for (int top = 0; top < target.height; top += Lanes) {
        const Band band{top, std::min(Lanes, target.height - top)};
        for (const int end = rows.first[std::size_t(top + band.height - 1)] + rows.taps; fetched < end;
             ++fetched)
            prefetchRow(source, fetched);
        filterDown(source, rows, band, turned.data());
        filterAcross(turned.data(), values.data(), target.width, target.channels, columns);
        putRows(values.data(), target, band);
    }
}

} // namespace tarsel::operations
