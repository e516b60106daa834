// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffPixels.h"

#include "bytes/Numbers.h"
#include "codecs/ColorProfile.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <vector>

namespace tarsel {

namespace {

constexpr std::int64_t maxSamples = 400'000'000;

template <class Number>
double loaded(const std::uint8_t* at) {
    return double(loadNumber<Number>(at, nativeOrder));
}

/// IEEE numbers of 16 bits: sign, 5 bits of exponent, 10 of fraction.
double loadedHalf(const std::uint8_t* at) {
    const auto half = loadNumber<std::uint16_t>(at, nativeOrder);
    const int exponent = half >> 10 & 31;
    const int fraction = half & 1023;
    const double value = exponent == 0    ? std::ldexp(fraction, -24)
                         : exponent == 31 ? std::numeric_limits<double>::infinity()
                                          : std::ldexp(1024 + fraction, exponent - 25);
    return half & 0x8000 ? -value : value;
}

using Load = double (*)(const std::uint8_t*);

/// How one sample of full bytes is read; null for an unsupported kind. libtiff has put the bytes in our
/// order.
Load loaderFor(const TiffLayout& layout) {
    const bool isSigned = layout.sampleFormat == SAMPLEFORMAT_INT;
    if (layout.sampleFormat == SAMPLEFORMAT_IEEEFP)
        return layout.bits == 16   ? loadedHalf
               : layout.bits == 32 ? loaded<float>
               : layout.bits == 64 ? loaded<double>
                                   : nullptr;
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

/// Which samples of a pixel are read: the colours, then alpha when there is one.
struct SampleChoice {
    int colors = 0;
    int alpha = -1; ///< its place among the samples, or -1

    int count() const { return colors + (alpha < 0 ? 0 : 1); }
    int sample(int i) const { return i < colors ? i : alpha; }
};

/// The chosen samples as floating point, from strips or tiles, interleaved or in planes.
class SampleReader {
public:
    SampleReader(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file,
                 SampleChoice choice) :
        m_tiff(tiff),
        m_layout(layout), m_file(file), m_choice(choice), m_wanted(choice.count()),
        m_load(loaderFor(layout)) {
        const bool isPacked = layout.bits < 16 && layout.sampleFormat == SAMPLEFORMAT_UINT;
        if ((!m_load && !isPacked) || layout.samples < choice.sample(m_wanted - 1) + 1)
            failDecoding(file, QCoreApplication::translate(
                                   "TiffSamples", "%1 samples of %2 bits, kind %3, are not supported")
                                   .arg(layout.samples)
                                   .arg(layout.bits)
                                   .arg(layout.sampleFormat));
        if (std::int64_t(layout.width) * layout.height > maxSamples / m_wanted)
            failDecoding(file, QCoreApplication::translate("TiffSamples", "too large for samples of %1 bits")
                                   .arg(layout.bits));
    }

    std::vector<float> read() {
        m_samples.resize(std::size_t(m_layout.width) * std::size_t(m_layout.height) * std::size_t(m_wanted));
        const tmsize_t size = m_layout.tiled ? TIFFTileSize(m_tiff) : TIFFStripSize(m_tiff);
        if (size <= 0)
            failDecoding(m_file, QCoreApplication::translate("TiffSamples", "its strips have no size"));
        m_block.resize(std::size_t(size));
        const int planes = isSeparate() ? m_wanted : 1;
        for (int plane = 0; plane < planes; ++plane)
            readPlane(plane);
        return std::move(m_samples);
    }

private:
    bool isSeparate() const { return m_layout.planar == PLANARCONFIG_SEPARATE; }

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
        const auto sample = std::uint16_t(isSeparate() ? m_choice.sample(plane) : 0);
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
        const std::size_t perPixel = isSeparate() ? 1 : std::size_t(m_layout.samples);
        const std::size_t rowBytes =
            (std::size_t(blockWidth) * perPixel * std::size_t(m_layout.bits) + 7) / 8;
        const int right = int(std::min<std::int64_t>(left + blockWidth, m_layout.width));
        const int bottom = int(std::min<std::int64_t>(top + blockHeight, m_layout.height));
        for (int y = top; y < bottom; ++y) {
            const std::size_t rowAt = std::size_t(y - top) * rowBytes;
            if (rowAt + rowBytes > m_filled)
                return;
            const std::uint8_t* row = &m_block[rowAt];
            float* to = &m_samples[(std::size_t(y) * std::size_t(m_layout.width) + std::size_t(left)) *
                                   std::size_t(m_wanted)];
            for (std::size_t pixel = 0; pixel < std::size_t(right - left); ++pixel, to += m_wanted)
                if (isSeparate())
                    to[plane] = load(row, pixel);
                else
                    for (int s = 0; s < m_wanted; ++s)
                        to[s] = load(row, pixel * perPixel + std::size_t(m_choice.sample(s)));
        }
    }

    float load(const std::uint8_t* row, std::size_t index) const {
        if (m_load)
            return float(m_load(row + index * std::size_t(m_layout.bits) / 8));
        unsigned value = 0;
        for (std::size_t bit = index * std::size_t(m_layout.bits), i = 0; i < std::size_t(m_layout.bits);
             ++i, ++bit)
            value = value << 1 | (row[bit / 8] >> (7 - bit % 8) & 1);
        return float(value);
    }

    const TiffFile& m_tiff;
    const TiffLayout& m_layout;
    const FileUnderTest& m_file;
    SampleChoice m_choice;
    int m_wanted;
    Load m_load;
    std::vector<std::uint8_t> m_block;
    std::size_t m_filled = 0;
    std::vector<float> m_samples;
};

/// What counts as 0 and as 1. Integers use the range of unsigned ones; floating point does when it stays
/// between 0 and 1, else the range of the values that occur. Negative integers are black, as for libvips.
struct SampleRange {
    float low = 0;
    float high = 1;
    float scaled(float value) const {
        return std::isfinite(value) ? std::clamp((value - low) / (high - low), 0.0F, 1.0F) : 0.0F;
    }
};

SampleRange rangeOf(const TiffLayout& layout, const std::vector<float>& samples) {
    const float span = std::ldexp(1.0F, layout.bits) - 1;
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

/// Floating point holds L*a*b* as it is. Of integers, L goes from 0 to the range of unsigned ones; a and b
/// are signed in CIELAB, around the middle of the range in ICCLAB. Files with a signed format are the same.
class LabSamples {
public:
    explicit LabSamples(const TiffLayout& layout) :
        m_isFloat(layout.sampleFormat == SAMPLEFORMAT_IEEEFP),
        m_isShifted(layout.photometric == PHOTOMETRIC_ICCLAB), m_full(std::ldexp(1.0, layout.bits) - 1),
        m_unit(std::ldexp(1.0, layout.bits - 8)) {}

    double lightness(float value) const {
        return m_isFloat ? finite(value) : unsignedOf(double(value)) / m_full * 100;
    }
    double colorAxis(float value) const {
        if (m_isFloat)
            return finite(value);
        const double stored = unsignedOf(double(value));
        if (m_isShifted)
            return stored / m_unit - 128;
        return (stored > m_full / 2 ? stored - m_full - 1 : stored) / m_unit;
    }

private:
    static double finite(float value) { return std::isfinite(value) ? double(value) : 0; }
    double unsignedOf(double value) const { return value < 0 ? value + m_full + 1 : value; }

    bool m_isFloat;
    bool m_isShifted;
    double m_full; ///< of the unsigned range
    double m_unit; ///< of a and b
};

void storeLab(const std::vector<float>& samples, const TiffLayout& layout, PixelView target) {
    const LabConversion conversion;
    const LabSamples lab(layout);
    std::vector<double> row(std::size_t(target.width) * 3);
    const float* sample = samples.data();
    for (int y = 0; y < target.height; ++y) {
        for (std::size_t i = 0; i < row.size(); i += 3, sample += 3) {
            row[i] = lab.lightness(sample[0]);
            row[i + 1] = lab.colorAxis(sample[1]);
            row[i + 2] = lab.colorAxis(sample[2]);
        }
        conversion.convertRow(row.data(), target.row(y), target.width);
    }
}

/// Cyan, magenta, yellow and black with alpha or without. Three inks are those without black, fewer begin
/// with black.
class InkPainter {
public:
    InkPainter(SampleChoice choice, SampleRange range, bool isMultiplied) :
        m_choice(choice), m_range(range), m_isMultiplied(isMultiplied) {}

    void paint(const std::vector<float>& samples, const QByteArray& iccProfile, PixelView target) const {
        const CmykConversion conversion(iccProfile);
        const auto width = std::size_t(target.width);
        std::vector<std::uint8_t> inks(width * 4), colors(width * 3);
        const float* sample = samples.data();
        for (int y = 0; y < target.height; ++y) {
            std::uint8_t* pixel = target.row(y);
            for (std::size_t x = 0; x < width; ++x, sample += m_choice.count())
                storeInks(sample, &inks[4 * x]);
            conversion.convertRow(inks.data(), colors.data(), target.width);
            sample -= width * std::size_t(m_choice.count());
            for (std::size_t x = 0; x < width; ++x, sample += m_choice.count(), pixel += target.channels) {
                std::copy_n(&colors[3 * x], 3, pixel);
                if (target.channels == 4)
                    pixel[3] = byteOf(alphaOf(sample));
            }
        }
    }

private:
    float alphaOf(const float* sample) const {
        return m_choice.alpha < 0 ? 1.0F : m_range.scaled(sample[m_choice.colors]);
    }

    void storeInks(const float* sample, std::uint8_t* inks) const {
        const float alpha = alphaOf(sample);
        const float factor = m_isMultiplied && alpha > 0 ? 1 / alpha : 1;
        for (int ink = 0; ink < m_choice.colors; ++ink)
            inks[m_choice.colors < 3 ? 3 - ink : ink] =
                byteOf(std::min(m_range.scaled(sample[ink]) * factor, 1.0F));
    }

    SampleChoice m_choice;
    SampleRange m_range;
    bool m_isMultiplied;
};

/// Colours of 16 bits each; some writers fill in 8.
class TiffPalette {
public:
    TiffPalette(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file) :
        m_size(layout.bits <= 16 ? std::size_t(1) << layout.bits : 0) {
        if (!TIFFGetField(tiff, TIFFTAG_COLORMAP, &m_channels[0], &m_channels[1], &m_channels[2]) ||
            m_size == 0)
            failDecoding(file, QCoreApplication::translate("TiffSamples", "no palette"));
        for (const std::uint16_t* channel : m_channels)
            m_isDeep =
                m_isDeep || std::any_of(channel, channel + m_size, [](int value) { return value > 255; });
    }

    float unit(int channel, float index) const {
        const auto at = std::size_t(std::fmin(std::fmax(index, 0.0F), float(m_size - 1)));
        return float(m_channels[channel][at]) / (m_isDeep ? 65535 : 255);
    }

private:
    std::size_t m_size;
    std::uint16_t* m_channels[3] = {};
    bool m_isDeep = false;
};

/// Gray, RGB or indexes, with alpha or without.
class UnitPainter {
public:
    UnitPainter(const TiffLayout& layout, SampleRange range, SampleChoice choice,
                std::optional<TiffPalette> palette) :
        m_layout(layout),
        m_range(range), m_choice(choice), m_palette(std::move(palette)) {}

    void paint(const std::vector<float>& samples, PixelView target) const {
        const float* sample = samples.data();
        for (int y = 0; y < target.height; ++y)
            for (int x = 0; x < target.width; ++x, sample += m_choice.count())
                paintPixel(sample, target.pixel(x, y));
    }

private:
    void paintPixel(const float* sample, std::uint8_t* pixel) const {
        const float alpha = m_choice.alpha < 0 ? 1.0F : m_range.scaled(sample[m_choice.colors]);
        const bool multiplied = m_layout.extraSample == EXTRASAMPLE_ASSOCALPHA && alpha > 0;
        for (int c = 0; c < 3; ++c) {
            const float unit = color(sample, c);
            pixel[c] = byteOf(multiplied ? std::min(unit / alpha, 1.0F) : unit);
        }
        if (m_choice.alpha >= 0)
            pixel[3] = byteOf(alpha);
    }

    float color(const float* sample, int channel) const {
        if (m_palette)
            return m_palette->unit(channel, sample[0]);
        const float unit = m_range.scaled(sample[m_choice.colors == 1 ? 0 : channel]);
        return m_layout.photometric == PHOTOMETRIC_MINISWHITE ? 1 - unit : unit;
    }

    const TiffLayout& m_layout;
    SampleRange m_range;
    SampleChoice m_choice;
    std::optional<TiffPalette> m_palette;
};

int colorSamples(const TiffLayout& layout) {
    switch (layout.photometric) {
    case PHOTOMETRIC_SEPARATED:
        return std::clamp(layout.samples - layout.extraSamples, 1, 4);
    case PHOTOMETRIC_MINISBLACK:
    case PHOTOMETRIC_MINISWHITE:
    case PHOTOMETRIC_PALETTE:
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
    if (layout.sampleFormat == SAMPLEFORMAT_COMPLEXINT || layout.sampleFormat == SAMPLEFORMAT_COMPLEXIEEEFP)
        failDecoding(file, QCoreApplication::translate("TiffSamples", "complex samples are not supported"));
    SampleChoice choice{colorSamples(layout)};
    if (choice.colors == 0)
        failDecoding(file, QCoreApplication::translate("TiffSamples", "colours of kind %1 are not supported")
                               .arg(layout.photometric));
    const bool hasInks = layout.photometric == PHOTOMETRIC_SEPARATED;
    const bool isUnit =
        !hasInks && layout.photometric != PHOTOMETRIC_CIELAB && layout.photometric != PHOTOMETRIC_ICCLAB;
    if ((isUnit || hasInks) && layout.alphaSample >= 0)
        choice.alpha = std::max(choice.colors, layout.samples - layout.extraSamples) + layout.alphaSample;
    const std::vector<float> samples = SampleReader(tiff, layout, file, choice).read();
    const SampleRange range = rangeOf(layout, samples);
    Picture picture(layout.width, layout.height, choice.alpha < 0 ? 3 : 4);
    const PixelView target = picture.edit();
    std::optional<TiffPalette> palette;
    if (layout.photometric == PHOTOMETRIC_PALETTE)
        palette.emplace(tiff, layout, file);
    if (isUnit)
        UnitPainter(layout, range, choice, palette).paint(samples, target);
    else if (hasInks)
        InkPainter(choice, range, layout.extraSample == EXTRASAMPLE_ASSOCALPHA)
            .paint(samples, iccProfile, target);
    else
        storeLab(samples, layout, target);
    return picture;
}

} // namespace tarsel
