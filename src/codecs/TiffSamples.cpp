// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffPixels.h"

#include "codecs/ColorProfile.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

constexpr std::int64_t MostSamples = 400'000'000;

template <class Number>
double loaded(const std::uint8_t* at) {
    Number value;
    std::memcpy(&value, at, sizeof value);
    return double(value);
}

using Load = double (*)(const std::uint8_t*);

/// How one sample is read; null for a kind that isn't known. libtiff has put the bytes in our order.
Load loaderFor(const TiffLayout& layout) {
    const bool isSigned = layout.sampleFormat == SAMPLEFORMAT_INT;
    if (layout.sampleFormat == SAMPLEFORMAT_IEEEFP)
        return layout.bits == 32 ? loaded<float> : layout.bits == 64 ? loaded<double> : nullptr;
    switch (layout.bits) {
    case 8:
        return isSigned ? loaded<std::int8_t> : loaded<std::uint8_t>;
    case 16:
        return isSigned ? loaded<std::int16_t> : loaded<std::uint16_t>;
    case 32:
        return isSigned ? loaded<std::int32_t> : loaded<std::uint32_t>;
    case 64:
        return isSigned ? loaded<std::int64_t> : loaded<std::uint64_t>;
    default:
        return nullptr;
    }
}

/// Samples of the colour channels alone, as floating point, from strips or tiles, interleaved or in planes.
class SampleReader {
public:
    SampleReader(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file, int wanted) :
        m_tiff(tiff), m_layout(layout), m_file(file), m_wanted(wanted), m_load(loaderFor(layout)) {
        if (!m_load || layout.samples < wanted)
            failDecoding(file, QStringLiteral("%1 samples of %2 bits, kind %3, are not known")
                                   .arg(layout.samples)
                                   .arg(layout.bits)
                                   .arg(layout.sampleFormat));
        if (std::int64_t(layout.width) * layout.height > MostSamples / wanted)
            failDecoding(file, QStringLiteral("too large for samples of %1 bits").arg(layout.bits));
    }

    std::vector<float> read() {
        m_samples.resize(std::size_t(m_layout.width) * std::size_t(m_layout.height) * std::size_t(m_wanted));
        const tmsize_t size = m_layout.tiled ? TIFFTileSize(m_tiff) : TIFFStripSize(m_tiff);
        if (size <= 0)
            failDecoding(m_file, QStringLiteral("its strips have no size"));
        m_block.resize(std::size_t(size));
        const int planes = m_layout.planar == PLANARCONFIG_SEPARATE ? m_wanted : 1;
        for (int plane = 0; plane < planes; ++plane)
            readPlane(plane);
        return std::move(m_samples);
    }

private:
    void readPlane(int plane) {
        const auto blockWidth =
            m_layout.tiled ? m_tiff.field<std::uint32_t>(TIFFTAG_TILEWIDTH) : std::uint32_t(m_layout.width);
        const auto blockHeight =
            m_tiff.field<std::uint32_t>(m_layout.tiled ? TIFFTAG_TILELENGTH : TIFFTAG_ROWSPERSTRIP);
        const std::int64_t height =
            std::clamp<std::int64_t>(blockHeight, 1, m_layout.tiled ? INT32_MAX : m_layout.height);
        const std::int64_t width = std::max<std::int64_t>(blockWidth, 1);
        for (std::int64_t y = 0; y < m_layout.height; y += height)
            for (std::int64_t x = 0; x < m_layout.width; x += width) {
                readBlock(int(x), int(y), plane);
                store(int(x), int(y), width, height, plane);
            }
    }

    void readBlock(int x, int y, int plane) {
        const auto sample = std::uint16_t(plane);
        const auto size = tmsize_t(m_block.size());
        const tmsize_t got =
            m_layout.tiled
                ? TIFFReadEncodedTile(m_tiff,
                                      TIFFComputeTile(m_tiff, std::uint32_t(x), std::uint32_t(y), 0, sample),
                                      m_block.data(), size)
                : TIFFReadEncodedStrip(m_tiff, TIFFComputeStrip(m_tiff, std::uint32_t(y), sample),
                                       m_block.data(), size);
        if (got >= 0) {
            m_filled = std::size_t(got);
            return;
        }
        if (x == 0 && y == 0)
            failDecoding(m_file, m_tiff.firstError());
        m_filled = 0;
    }

    void store(int left, int top, std::int64_t blockWidth, std::int64_t blockHeight, int plane) {
        const bool separate = m_layout.planar == PLANARCONFIG_SEPARATE;
        const std::size_t bytes = std::size_t(m_layout.bits) / 8;
        const std::size_t perPixel = separate ? 1 : std::size_t(m_layout.samples);
        const int right = int(std::min<std::int64_t>(left + blockWidth, m_layout.width));
        const int bottom = int(std::min<std::int64_t>(top + blockHeight, m_layout.height));
        for (int y = top; y < bottom; ++y)
            for (int x = left; x < right; ++x) {
                const std::size_t pixel =
                    std::size_t(y - top) * std::size_t(blockWidth) + std::size_t(x - left);
                const std::size_t at = pixel * perPixel * bytes;
                if (at + perPixel * bytes > m_filled)
                    return;
                float* to = &m_samples[(std::size_t(y) * std::size_t(m_layout.width) + std::size_t(x)) *
                                       std::size_t(m_wanted)];
                if (separate)
                    to[plane] = float(m_load(&m_block[at]));
                else
                    for (int s = 0; s < m_wanted; ++s)
                        to[s] = float(m_load(&m_block[at + std::size_t(s) * bytes]));
            }
    }

    const TiffFile& m_tiff;
    const TiffLayout& m_layout;
    const FileUnderTest& m_file;
    int m_wanted;
    Load m_load;
    std::vector<std::uint8_t> m_block;
    std::size_t m_filled = 0;
    std::vector<float> m_samples;
};

/// What stands for 0 and for 1. Whole numbers use their range; floating point does when it stays between 0
/// and 1, else the range of the values at hand.
struct SampleRange {
    float low = 0;
    float high = 1;
    float scaled(float value) const {
        return std::isfinite(value) ? std::clamp((value - low) / (high - low), 0.0F, 1.0F) : 0.0F;
    }
};

SampleRange rangeOf(const TiffLayout& layout, const std::vector<float>& samples) {
    const float span = std::ldexp(1.0F, layout.bits) - 1;
    if (layout.sampleFormat == SAMPLEFORMAT_INT)
        return {-std::ldexp(1.0F, layout.bits - 1), std::ldexp(1.0F, layout.bits - 1) - 1};
    if (layout.sampleFormat != SAMPLEFORMAT_IEEEFP)
        return {0, span};
    SampleRange range;
    for (const float value : samples)
        if (std::isfinite(value)) {
            range.low = std::min(range.low, value);
            range.high = std::max(range.high, value);
        }
    return range;
}

std::uint8_t byteOf(float unit) {
    return std::uint8_t(std::lround(unit * 255));
}

/// L from 0 to the full range; a and b signed in CIELAB, around the middle of the range in ICCLAB.
void storeLab(const std::vector<float>& samples, const TiffLayout& layout, PixelView target) {
    const LabConversion conversion;
    const double full = std::ldexp(1.0, layout.bits) - 1;
    const double unit = std::ldexp(1.0, layout.bits - 8);
    const bool shifted = layout.photometric == PHOTOMETRIC_ICCLAB;
    const auto colorAxis = [&](double value) {
        if (shifted)
            return value / unit - 128;
        return (value > full / 2 ? value - full - 1 : value) / unit;
    };
    std::vector<double> row(std::size_t(target.width) * 3);
    const float* sample = samples.data();
    for (int y = 0; y < target.height; ++y) {
        for (std::size_t i = 0; i < row.size(); i += 3, sample += 3) {
            row[i] = double(sample[0]) / full * 100;
            row[i + 1] = colorAxis(double(sample[1]));
            row[i + 2] = colorAxis(double(sample[2]));
        }
        conversion.convertRow(row.data(), target.row(y), target.width);
    }
}

void storeCmyk(const std::vector<float>& samples, SampleRange range, const QByteArray& iccProfile,
               PixelView target) {
    const CmykConversion conversion(iccProfile);
    std::vector<std::uint8_t> row(std::size_t(target.width) * 4);
    const float* sample = samples.data();
    for (int y = 0; y < target.height; ++y) {
        for (std::uint8_t& ink : row)
            ink = byteOf(range.scaled(*sample++));
        conversion.convertRow(row.data(), target.row(y), target.width);
    }
}

void storeRgb(const std::vector<float>& samples, SampleRange range, PixelView target) {
    const float* sample = samples.data();
    for (int y = 0; y < target.height; ++y)
        for (std::ptrdiff_t i = 0; i < target.stride; ++i)
            target.row(y)[i] = byteOf(range.scaled(*sample++));
}

void storeGray(const std::vector<float>& samples, SampleRange range, bool zeroIsWhite, PixelView target) {
    const float* sample = samples.data();
    for (int y = 0; y < target.height; ++y)
        for (int x = 0; x < target.width; ++x) {
            const float unit = range.scaled(*sample++);
            std::memset(target.pixel(x, y), byteOf(zeroIsWhite ? 1 - unit : unit), 3);
        }
}

int colorSamples(int photometric) {
    switch (photometric) {
    case PHOTOMETRIC_SEPARATED:
        return 4;
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MINISWHITE:
        return 1;
    case PHOTOMETRIC_RGB:
    case PHOTOMETRIC_CIELAB:
    case PHOTOMETRIC_ICCLAB:
        return 3;
    default:
        return 0;
    }
}

} // namespace

Picture decodeTiffSamples(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file,
                          const QByteArray& iccProfile) {
    const int wanted = colorSamples(layout.photometric);
    if (wanted == 0)
        failDecoding(file, QStringLiteral("colours of kind %1 are not known").arg(layout.photometric));
    const std::vector<float> samples = SampleReader(tiff, layout, file, wanted).read();
    const SampleRange range = rangeOf(layout, samples);
    Picture picture(layout.width, layout.height, 3);
    const PixelView target = picture.edit();
    if (wanted == 4)
        storeCmyk(samples, range, iccProfile, target);
    else if (wanted == 1)
        storeGray(samples, range, layout.photometric == PHOTOMETRIC_MINISWHITE, target);
    else if (layout.photometric == PHOTOMETRIC_RGB)
        storeRgb(samples, range, target);
    else
        storeLab(samples, layout, target);
    return picture;
}

} // namespace tarsel
