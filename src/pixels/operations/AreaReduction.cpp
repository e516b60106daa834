// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/AreaReduction.h"

#include "pixels/operations/AlphaPremultiplication.h"
#include "pixels/operations/Bands.h"
#include "pixels/operations/RowPrefetch.h"
#include "pixels/operations/Vectorised.h"

#include <vector>

namespace tarsel::operations {

namespace {

TARSEL_VECTORISED void startSums(const std::uint8_t* __restrict row, std::uint16_t* __restrict sums,
                                 int size) {
    for (int i = 0; i < size; ++i)
        sums[i] = row[i];
}

TARSEL_VECTORISED void addToSums(const std::uint8_t* __restrict row, std::uint16_t* __restrict sums,
                                 int size) {
    for (int i = 0; i < size; ++i)
        sums[i] = std::uint16_t(sums[i] + row[i]);
}

void meansAcross(const std::uint16_t* sums, std::uint8_t* out, int width, int channels, int acrossFactor,
                 unsigned area) {
    for (int x = 0; x < width; ++x)
        for (int c = 0; c < channels; ++c) {
            const std::uint16_t* sum = sums + std::ptrdiff_t(x) * acrossFactor * channels + c;
            unsigned total = area / 2;
            for (int k = 0; k < acrossFactor; ++k)
                total += sum[std::ptrdiff_t(k) * channels];
            out[x * channels + c] = std::uint8_t(total / area);
        }
}

/// The rows of a source in turn, with colours multiplied by alpha if that is asked for.
class SourceRows {
public:
    SourceRows(ConstPixelView source, bool premultiplied) :
        m_source(source), m_premultiplied(premultiplied ? std::size_t(source.width) * 8 : 0) {}

    /// Valid until the row after the next one is asked for.
    const std::uint8_t* row(int y) {
        if (m_premultiplied.empty())
            return m_source.row(y);
        std::uint8_t* const row = m_premultiplied.data() + (y % 2) * std::ptrdiff_t(m_source.width) * 4;
        premultiplyPixels(m_source.row(y), row, m_source.width);
        return row;
    }

private:
    ConstPixelView m_source;
    std::vector<std::uint8_t> m_premultiplied; ///< two rows
};

void reduceByArea(ConstPixelView source, PixelView target, const Band& band, int acrossFactor, int downFactor,
                  SourceRows& rows) {
    const int size = target.width * acrossFactor * source.channels;
    std::vector<std::uint16_t> sums(std::size_t(size), 0);
    for (int y = band.begin; y < band.end; ++y) {
        prefetchRow(source, y * downFactor + 1);
        startSums(rows.row(y * downFactor), sums.data(), size);
        for (int k = 1; k < downFactor; ++k) {
            prefetchRow(source, y * downFactor + k + 1);
            addToSums(rows.row(y * downFactor + k), sums.data(), size);
        }
        meansAcross(sums.data(), target.row(y), target.width, target.channels, acrossFactor,
                    unsigned(acrossFactor * downFactor));
    }
}

/// Means of 2 x 2 pixels, still at the place of the left one of each pair.
TARSEL_VECTORISED void averageFours(const std::uint8_t* __restrict upper,
                                    const std::uint8_t* __restrict lower, std::uint8_t* __restrict out,
                                    int size, int channels) {
    const std::uint8_t* upperNext = upper + channels;
    const std::uint8_t* lowerNext = lower + channels;
    for (int i = 0; i < size; ++i)
        out[i] = std::uint8_t((upper[i] + upperNext[i] + lower[i] + lowerNext[i] + 2) >> 2);
}

template <int Channels>
TARSEL_INLINED void takeEvery2nd(const std::uint8_t* __restrict in, std::uint8_t* __restrict out, int width) {
    for (int x = 0; x < width; ++x)
        for (int c = 0; c < Channels; ++c)
            out[x * Channels + c] = in[2 * x * Channels + c];
}

TARSEL_VECTORISED void takeEvenPixels(const std::uint8_t* __restrict in, std::uint8_t* __restrict out,
                                      int width, int channels) {
    if (channels == 3)
        takeEvery2nd<3>(in, out, width);
    else
        takeEvery2nd<4>(in, out, width);
}

void halve(ConstPixelView source, PixelView target, const Band& band, SourceRows& rows) {
    const int size = (2 * target.width - 1) * source.channels;
    std::vector<std::uint8_t> means(std::size_t(size), 0);
    for (int y = band.begin; y < band.end; ++y) {
        prefetchRow(source, 2 * y + 2);
        prefetchRow(source, 2 * y + 3);
        prefetchRow(target, y + 1);
        const std::uint8_t* upper = rows.row(2 * y);
        averageFours(upper, rows.row(2 * y + 1), means.data(), size, source.channels);
        takeEvenPixels(means.data(), target.row(y), target.width, source.channels);
    }
}

} // namespace

void areaReduction(ConstPixelView source, PixelView target, int acrossFactor, int downFactor,
                   bool premultiplySource) {
    forBands(bandsOf(target.height, pixelCount(source)), [&](const Band& band) {
        SourceRows rows(source, premultiplySource);
        if (acrossFactor == 2 && downFactor == 2)
            halve(source, target, band, rows);
        else
            reduceByArea(source, target, band, acrossFactor, downFactor, rows);
    });
}

} // namespace tarsel::operations
