// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Sharpen.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/ByteClamp.h"
#include "pixels/operations/PackedPixel.h"
#include "pixels/operations/RowPrefetch.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

constexpr double amountPerLevel = 0.3;

/// Three rows of the source, as they were before the target was written.
struct ThreeRows {
    const std::uint8_t* up;
    const std::uint8_t* middle;
    const std::uint8_t* down;
    const std::uint8_t* next; ///< asked for in pieces, so that its memory arrives beside the arithmetic
};

/// Bytes that are worked on together: their sums stay in the nearest cache.
constexpr int blockLength = 2048;

/// The mean's weights down the columns for `count` bytes from byte `at` on.
TARSEL_INLINED void addRows(const ThreeRows& rows, int at, int count, std::uint16_t* __restrict sums) {
    for (int i = 0; i < count; ++i)
        sums[i] = std::uint16_t(rows.up[at + i] + 2 * rows.middle[at + i] + rows.down[at + i]);
}

/// `sums` begins one pixel left of the block. Sixteen times a value is its scale here; `factor` is the amount
/// in 1/8192, and the upper 16 bits of the product with eight times the detail remain.
TARSEL_INLINED void addDetail(const std::uint8_t* __restrict in, const std::uint16_t* __restrict sums,
                              std::uint8_t* __restrict out, int count, int channels, std::int16_t factor) {
    const std::uint16_t* middle = sums + channels;
    const std::uint16_t* right = middle + channels;
    for (int i = 0; i < count; ++i) {
        const auto value = std::int16_t(16 * in[i]);
        const auto mean = std::int16_t(sums[i] + 2 * middle[i] + right[i]);
        const auto detail = std::int16_t(std::int16_t(value - mean) * 8);
        const auto result = std::int16_t(value + upperHalf(detail, factor) + 8);
        out[i] = clampedToByte(std::int16_t(result >> 4));
    }
}

TARSEL_VECTORISED void sharpenRow(const ThreeRows& rows, std::uint8_t* out, int size, int channels,
                                  std::int16_t factor) {
    constexpr int maxChannels = 4;
    std::uint16_t sums[blockLength + 2 * maxChannels];
    for (int at = 0; at < size; at += blockLength) {
        const int count = std::min(blockLength, size - at);
        prefetchBytes(rows.next + at, count);
        const int before = at > 0 ? channels : 0;
        const int after = at + count < size ? channels : 0;
        addRows(rows, at - before, before + count + after, sums + channels - before);
        for (int c = 0; c < channels; ++c) { // at the ends the outermost pixels repeat
            sums[c] = before ? sums[c] : sums[channels + c];
            sums[channels + count + c] = after ? sums[channels + count + c] : sums[count + c];
        }
        addDetail(rows.middle + at, sums, out + at, count, channels, factor);
    }
}

/// Pixels that are worked on together where colours count by their alpha.
constexpr int blockWidth = 512;

/// Sums of colours times alpha, and of alpha, with one place more at either end.
using AlphaSums = std::int32_t[4][blockWidth + 2];

TARSEL_INLINED void addRowsWithAlpha(const ThreeRows& rows, int from, int count, int place, AlphaSums& sums) {
    for (int x = 0; x < count; ++x) {
        const PackedPixel up = packedAt(rows.up + 4 * (from + x));
        const PackedPixel middle = packedAt(rows.middle + 4 * (from + x));
        const PackedPixel down = packedAt(rows.down + 4 * (from + x));
        const std::int32_t weights[3] = {channelOf(up, 3), 2 * channelOf(middle, 3), channelOf(down, 3)};
        for (int c = 0; c < 3; ++c)
            sums[c][place + x] = channelOf(up, c) * weights[0] + channelOf(middle, c) * weights[1] +
                                 channelOf(down, c) * weights[2];
        sums[3][place + x] = weights[0] + weights[1] + weights[2];
    }
}

/// `share` is the amount times one over the sum of alpha.
TARSEL_INLINED std::int32_t sharpened(std::int32_t value, float sum, float amount, float share) {
    const float result = float(value) * (1 + amount) + 0.5F - sum * share;
    return std::int32_t(std::min(255.0F, std::max(0.0F, result)));
}

/// The mean across of what is summed up down the columns.
TARSEL_INLINED float sumAcross(const std::int32_t* sums, int x) {
    return float(sums[x] + 2 * sums[x + 1] + sums[x + 2]);
}

TARSEL_INLINED void addDetailWithAlpha(const std::uint8_t* __restrict in, const AlphaSums& sums,
                                       std::uint8_t* __restrict out, int count, float amount) {
    for (int x = 0; x < count; ++x) {
        const PackedPixel pixel = packedAt(in + 4 * x);
        const float share = amount / std::max(1.0F, sumAcross(sums[3], x));
        const auto value = [&](int c) {
            return sharpened(channelOf(pixel, c), sumAcross(sums[c], x), amount, share);
        };
        const PackedPixel result = packedOf(value(0), value(1), value(2), channelOf(pixel, 3));
        putPacked(out + 4 * x, channelOf(pixel, 3) ? result : pixel);
    }
}

TARSEL_VECTORISED void sharpenRowWithAlpha(const ThreeRows& rows, std::uint8_t* out, int width,
                                           float amount) {
    AlphaSums sums;
    for (int at = 0; at < width; at += blockWidth) {
        const int count = std::min(blockWidth, width - at);
        prefetchBytes(rows.next + 4 * at, 4 * count);
        const int before = at > 0 ? 1 : 0;
        const int after = at + count < width ? 1 : 0;
        addRowsWithAlpha(rows, at - before, before + count + after, 1 - before, sums);
        for (auto& own : sums) {
            own[0] = before ? own[0] : own[1];
            own[count + 1] = after ? own[count + 1] : own[count];
        }
        addDetailWithAlpha(rows.middle + 4 * at, sums, out + 4 * at, count, amount);
    }
}

void sharpenBand(const BandSource& source, ConstPixelView view, PixelView target, const Band& band,
                 double amount, bool transparent) {
    const int size = view.width * view.channels;
    const std::uint8_t* above = source.row(band, std::max(band.begin - 1, 0));
    std::vector<std::uint8_t> current(std::size_t(size), 0); // as before, where the target is the source
    std::vector<std::uint8_t> previous(above, above + size);
    for (int y = band.begin; y < band.end; ++y) {
        std::memcpy(current.data(), source.row(band, y), std::size_t(size));
        const ThreeRows rows{previous.data(), current.data(),
                             y + 1 < view.height ? source.row(band, y + 1) : current.data(),
                             view.row(std::min(y + 2, view.height - 1))};
        if (transparent)
            sharpenRowWithAlpha(rows, target.row(y), view.width, float(amount));
        else
            sharpenRow(rows, target.row(y), size, view.channels, std::int16_t(std::lround(amount * 8192)));
        current.swap(previous);
    }
}

} // namespace

void sharpen(ConstPixelView source, PixelView target, int level) {
    const double amount = std::clamp(level, 1, 10) * amountPerLevel;
    const bool transparent = hasTransparency(source);
    const std::vector<Band> bands = bandsOf(source.height, pixelCount(source));
    const BandSource rows(source, bands, 1);
    forBands(bands, [&](const Band& band) { sharpenBand(rows, source, target, band, amount, transparent); });
}

} // namespace tarsel::operations
