// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Flip.h"

#include "pixels/operations/Bands.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Transposition.h"
#include "pixels/operations/Vectorised.h"

#include <cstring>
#include <vector>

namespace tarsel::operations {

namespace {

/// Five pixels of three channels, behind a byte that becomes the last, or four of four.
template <int Channels>
TARSEL_INLINED Bytes mirrored(Bytes block) {
    if constexpr (Channels == 3)
        return __builtin_shufflevector(block, block, 13, 14, 15, 10, 11, 12, 7, 8, 9, 4, 5, 6, 1, 2, 3, 0);
    else
        return __builtin_shufflevector(block, block, 12, 13, 14, 15, 8, 9, 10, 11, 4, 5, 6, 7, 0, 1, 2, 3);
}

/// In blocks of a vector. Where pixels don't fill it, it has a byte of the pixel before the block and writes
/// it into the place of the next pixel, which is written after it.
template <int Channels>
TARSEL_INLINED void mirrorPixels(const std::uint8_t* in, std::uint8_t* out, int width) {
    constexpr int step = int(sizeof(Bytes)) / Channels;
    constexpr int lead = int(sizeof(Bytes)) - step * Channels;
    int x = 0;
    for (; x + step < width; x += step) {
        const Bytes block = mirrored<Channels>(loadVector<Bytes>(in + (width - step - x) * Channels - lead));
        std::memcpy(out + x * Channels, &block, sizeof block);
    }
    for (; x < width; ++x)
        for (int c = 0; c < Channels; ++c)
            out[x * Channels + c] = in[(width - 1 - x) * Channels + c];
}

TARSEL_VECTORISED void mirrorRow(const std::uint8_t* __restrict in, std::uint8_t* __restrict out, int width,
                                 int channels) {
    if (channels == 3)
        mirrorPixels<3>(in, out, width);
    else
        mirrorPixels<4>(in, out, width);
}

} // namespace

void flipHorizontal(ConstPixelView source, PixelView target) {
    const std::size_t size = std::size_t(source.width) * std::size_t(source.channels);
    forBands(source, [&](const Band& band) {
        std::vector<std::uint8_t> row(size); // one row stays in the cache: in place costs no more
        for (int y = band.begin; y < band.end; ++y) {
            prefetchRow(source, y + 1);
            if (source.row(y) != target.row(y)) {
                mirrorRow(source.row(y), target.row(y), source.width, source.channels);
                continue;
            }
            mirrorRow(source.row(y), row.data(), source.width, source.channels);
            std::memcpy(target.row(y), row.data(), size);
        }
    });
}

void flipVertical(ConstPixelView source, PixelView target) {
    const std::size_t size = std::size_t(source.width) * std::size_t(source.channels);
    const bool isInPlace = source.data == target.data;
    const int pairs = (source.height + 1) / 2;
    forBands(bandsOf(pairs, pixelCount(source)), [&](const Band& band) {
        std::vector<std::uint8_t> upper(size);
        for (int top = band.begin; top < band.end; ++top) {
            const int bottom = source.height - 1 - top;
            const std::uint8_t* up = source.row(top);
            if (isInPlace) {
                std::memcpy(upper.data(), up, size);
                up = upper.data();
            }
            std::memmove(target.row(top), source.row(bottom), size);
            std::memcpy(target.row(bottom), up, size);
        }
    });
}

} // namespace tarsel::operations
