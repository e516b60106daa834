// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/SeparableFilter.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Transposition.h"

#include <algorithm>
#include <vector>

namespace tarsel::operations {

namespace {

/// Target rows that are filtered together: after the vertical pass their values are turned to be side by
/// side, and a step of the horizontal pass works on all of them at once.
constexpr int lanes = 16;
/// Bytes of a row that the vertical pass takes at a time.
constexpr int blockLength = 128;

/// Bits after the binary point: into the vertical pass, between the passes, after the horizontal one. A
/// product with a weight takes one bit off, and what overshoots finds room in 16 bits.
constexpr int inputBits = 7;
constexpr int middleBits = inputBits + AxisWeights::bits - 15;
constexpr int resultBits = middleBits + AxisWeights::bits - 15;

/// The product of a value and a weight / 32768, rounded.
TARSEL_INLINED std::int16_t weighted(std::int16_t value, std::int16_t weight) {
    return std::int16_t((((std::int32_t(value) * weight) >> 14) + 1) >> 1);
}

using Tile = std::int16_t[lanes][blockLength];

/// Weighted sums down the columns of the source, of which `rows` holds a block, one row after the other.
TARSEL_INLINED void sumRows(const std::int16_t* __restrict rows, const std::int16_t* weights, int taps,
                            std::int16_t* __restrict out) {
    std::int16_t sums[blockLength] = {};
    for (int k = 0; k < taps; ++k, rows += blockLength) {
        const std::int16_t weight = weights[k];
        for (int i = 0; i < blockLength; ++i)
            sums[i] = std::int16_t(sums[i] + weighted(rows[i], weight));
    }
    for (int i = 0; i < blockLength; ++i)
        out[i] = sums[i];
}

TARSEL_INLINED void widen(const std::uint8_t* __restrict in, int count, std::int16_t* __restrict out) {
    for (int i = 0; i < count; ++i)
        out[i] = std::int16_t(in[i] << inputBits);
}

/// Puts the rows of a tile side by side: value i of row r becomes columns[i * lanes + r].
TARSEL_INLINED void turnTile(const Tile& tile, std::int16_t* columns) {
    constexpr int side = 8;
    for (int i = 0; i < blockLength; i += side)
        for (int r = 0; r < lanes; r += side) {
            Words block[side];
            for (int k = 0; k < side; ++k)
                block[k] = loadVector<Words>(tile[r + k] + i);
            transposeRows(block);
            for (int k = 0; k < side; ++k)
                std::memcpy(columns + std::ptrdiff_t(i + k) * lanes + r, &block[k], sizeof(Words));
        }
}

/// Rows of the target, and the rows of the source that they need.
struct Strip {
    int top = 0;
    int height = 0;
    int sourceTop = 0;
    int sourceHeight = 0;
};

Strip stripAt(int top, int bottom, const AxisWeights& rows) {
    Strip strip{top, std::min(lanes, bottom - top), rows.first[std::size_t(top)], 0};
    strip.sourceHeight = rows.first[std::size_t(top + strip.height - 1)] + rows.taps - strip.sourceTop;
    return strip;
}

/// `widened` has room for a block of each row of the source that the strip needs.
TARSEL_VECTORISED void filterDown(ConstPixelView source, const AxisWeights& rows, Strip strip,
                                  bool premultiplied, std::int16_t* widened, std::int16_t* columns) {
    const int size = source.width * source.channels;
    Tile tile = {};
    for (int at = 0; at < size; at += blockLength) {
        const int count = std::min(blockLength, size - at);
        for (int k = 0; k < strip.sourceHeight; ++k) {
            const std::uint8_t* in = source.row(strip.sourceTop + k) + at;
            std::uint8_t pixels[blockLength];
            if (premultiplied) {
                premultiplyPixels(in, pixels, count / 4);
                in = pixels;
            }
            widen(in, count, widened + std::ptrdiff_t(k) * blockLength);
        }
        for (int r = 0; r < strip.height; ++r) {
            const int row = strip.top + r;
            const std::ptrdiff_t first = rows.first[std::size_t(row)] - strip.sourceTop;
            sumRows(widened + first * blockLength, rows.of(row), rows.taps, tile[r]);
        }
        turnTile(tile, columns + std::ptrdiff_t(at) * lanes);
    }
}

/// Weighted sums across, for all channels of a pixel and all rows of a strip at once.
template <int Channels>
TARSEL_INLINED void sumColumns(const std::int16_t* __restrict in, const std::int16_t* weights, int taps,
                               std::uint8_t* __restrict out) {
    constexpr int count = Channels * lanes;
    std::int16_t sums[count];
    for (int i = 0; i < count; ++i)
        sums[i] = 1 << (resultBits - 1);
    for (int k = 0; k < taps; ++k, in += count) {
        const std::int16_t weight = weights[k];
        for (int i = 0; i < count; ++i)
            sums[i] = std::int16_t(sums[i] + weighted(in[i], weight));
    }
    for (int i = 0; i < count; ++i)
        out[i] = clampedToByte(std::int16_t(sums[i] >> resultBits));
}

/// `values` gets `lanes` bytes for each byte of a row of the target.
TARSEL_VECTORISED void filterAcross(const std::int16_t* columns, std::uint8_t* values, int width,
                                    int channels, const AxisWeights& weights) {
    const std::ptrdiff_t step = std::ptrdiff_t(channels) * lanes;
    for (int x = 0; x < width; ++x) {
        const std::int16_t* in = columns + weights.first[std::size_t(x)] * step;
        if (channels == 3)
            sumColumns<3>(in, weights.of(x), weights.taps, values + x * step);
        else
            sumColumns<4>(in, weights.of(x), weights.taps, values + x * step);
    }
}

/// Puts `count` values of each row of a strip, at most as many as there are lanes, into the rows of the
/// target.
TARSEL_INLINED void putBlock(const std::uint8_t* values, PixelView target, Strip strip, int at, int count) {
    Bytes block[lanes];
    for (int k = 0; k < lanes; ++k)
        block[k] = loadVector<Bytes>(values + std::ptrdiff_t(at + k) * lanes);
    transposeRows(block);
    for (int r = 0; r < strip.height; ++r)
        std::memcpy(target.row(strip.top + r) + at, &block[r], std::size_t(count));
}

/// So many bytes before they are written, the rows of the target are asked for.
constexpr int putAhead = 8 * cacheLine;

TARSEL_VECTORISED void putRows(const std::uint8_t* values, PixelView target, Strip strip) {
    const int size = target.width * target.channels;
    int at = 0;
    for (; at + lanes <= size; at += lanes) {
        if (at % cacheLine == 0)
            for (int r = 0; r < strip.height; ++r)
                prefetchByte(target.row(strip.top + r) + at + putAhead);
        putBlock(values, target, strip, at, lanes);
    }
    if (at < size)
        putBlock(values, target, strip, at, size - at);
}

std::size_t roundedUp(int size, int unit) {
    return std::size_t((size + unit - 1) / unit) * std::size_t(unit);
}

void filterBand(ConstPixelView source, PixelView target, const Band& band, const AxisWeights& columns,
                const AxisWeights& rows, AlphaHandling alpha) {
    std::vector<std::int16_t> turned(roundedUp(source.width * source.channels, blockLength) * lanes);
    std::vector<std::uint8_t> values(roundedUp(target.width * target.channels, lanes) * lanes);
    std::vector<std::int16_t> widened;
    int fetched = rows.first[std::size_t(band.begin)];
    for (int top = band.begin; top < band.end; top += lanes) {
        const Strip strip = stripAt(top, band.end, rows);
        widened.resize(std::max(widened.size(), std::size_t(strip.sourceHeight) * blockLength));
        for (; fetched < strip.sourceTop + strip.sourceHeight; ++fetched)
            prefetchRow(source, fetched);
        filterDown(source, rows, strip, alpha.premultiplySource, widened.data(), turned.data());
        filterAcross(turned.data(), values.data(), target.width, target.channels, columns);
        putRows(values.data(), target, strip);
        for (int r = 0; alpha.unpremultiplyTarget && r < strip.height; ++r)
            unpremultiplyPixels(target.row(strip.top + r), target.width);
    }
}

} // namespace

void separableFilter(ConstPixelView source, PixelView target, const AxisWeights& columns,
                     const AxisWeights& rows, AlphaHandling alpha) {
    const auto pixels = std::max(pixelCount(source), pixelCount(target));
    forBands(bandsOf(target.height, pixels),
             [&](const Band& band) { filterBand(source, target, band, columns, rows, alpha); });
}

} // namespace tarsel::operations
