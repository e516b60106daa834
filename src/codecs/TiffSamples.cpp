// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffPixels.h"

#include "base/Stop.h"
#include "bytes/Numbers.h"
#include "codecs/ColorProfile.h"
#include "codecs/PictureLimit.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

/// Bytes of strips or tiles that are held at once, for each pixel of the largest picture.
constexpr std::int64_t heldBytesPerPixel = 4;

/// Reads samples that are `step` bytes apart into places that are `places` apart.
using LoadSamples = void (*)(const std::uint8_t* from, std::size_t step, std::size_t count, float* to,
                             std::size_t places);

template <class Number>
float numberAt(const std::uint8_t* at) {
    return float(loadNumber<Number>(at, nativeOrder));
}

/// IEEE numbers of 16 bits: sign, 5 bits of exponent, 10 of fraction.
float halfAt(const std::uint8_t* at) {
    const auto half = loadNumber<std::uint16_t>(at, nativeOrder);
    const int exponent = half >> 10 & 31;
    const int fraction = half & 1023;
    const float value = exponent == 0    ? std::ldexp(float(fraction), -24)
                        : exponent == 31 ? std::numeric_limits<float>::infinity()
                                         : std::ldexp(float(1024 + fraction), exponent - 25);
    return half & 0x8000 ? -value : value;
}

template <float (*at)(const std::uint8_t*)>
void loadSamples(const std::uint8_t* from, std::size_t step, std::size_t count, float* to,
                 std::size_t places) {
    for (std::size_t i = 0; i < count; ++i)
        to[i * places] = at(from + i * step);
}

/// How samples of full bytes are read; null for an unsupported kind. libtiff has put the bytes in our order.
LoadSamples loaderFor(const TiffLayout& layout) {
    const bool isSigned = layout.sampleFormat == SAMPLEFORMAT_INT;
    if (layout.sampleFormat == SAMPLEFORMAT_IEEEFP)
        return layout.bits == 16   ? loadSamples<halfAt>
               : layout.bits == 32 ? loadSamples<numberAt<float>>
               : layout.bits == 64 ? loadSamples<numberAt<double>>
                                   : nullptr;
    switch (layout.bits) {
    case 8:
        return isSigned ? loadSamples<numberAt<std::int8_t>> : loadSamples<numberAt<std::uint8_t>>;
    case 16:
        return isSigned ? loadSamples<numberAt<std::int16_t>> : loadSamples<numberAt<std::uint16_t>>;
    case 32:
        return isSigned ? loadSamples<numberAt<std::int32_t>> : loadSamples<numberAt<std::uint32_t>>;
    case 64:
        return isSigned ? loadSamples<numberAt<std::int64_t>> : loadSamples<numberAt<std::uint64_t>>;
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

/// The chosen samples as floating point, row by row, from strips or tiles, interleaved or in planes.
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
        const auto side = [&](int tileTag, std::int64_t stripSide, std::int64_t most) {
            return std::clamp<std::int64_t>(
                layout.tiled ? m_tiff.field<std::uint32_t>(std::uint32_t(tileTag)) : stripSide, 1, most);
        };
        m_blockWidth = side(TIFFTAG_TILEWIDTH, layout.width, INT32_MAX);
        m_blockHeight = side(TIFFTAG_TILELENGTH, m_tiff.field<std::uint32_t>(TIFFTAG_ROWSPERSTRIP),
                             layout.tiled ? INT32_MAX : layout.height);
        makeBlocks();
    }

    /// Calls use(y, samples) for each row; `samples` holds those of a pixel after those of the one before.
    template <class Use>
    void forEachRow(Use use) {
        std::vector<float> row(std::size_t(m_layout.width) * std::size_t(m_wanted));
        for (std::int64_t top = 0; top < m_layout.height; top += m_blockHeight) {
            for (std::size_t number = 0; number < m_blocks.size(); ++number)
                readBlock(number, top);
            for (std::int64_t y = top; y < std::min<std::int64_t>(top + m_blockHeight, m_layout.height);
                 ++y) {
                raiseIfStopped();
                std::ranges::fill(row, 0.0F);
                for (std::size_t number = 0; number < m_blocks.size(); ++number)
                    fill(row, number, std::size_t(y - top));
                use(int(y), std::as_const(row));
            }
        }
    }

private:
    /// A strip or tile, of one plane where there are planes.
    struct Block {
        std::vector<std::uint8_t> bytes;
        std::size_t filled = 0;
    };

    bool isSeparate() const { return m_layout.planar == PLANARCONFIG_SEPARATE; }
    int planeOf(std::size_t block) const { return int(block / m_columns); }
    std::int64_t leftOf(std::size_t block) const { return std::int64_t(block % m_columns) * m_blockWidth; }

    /// Room for the blocks of one height, in all planes.
    void makeBlocks() {
        const tmsize_t size = m_layout.tiled ? TIFFTileSize(m_tiff) : TIFFStripSize(m_tiff);
        if (size <= 0)
            failDecoding(m_file, QCoreApplication::translate("TiffSamples", "its strips have no size"));
        m_columns = std::size_t((m_layout.width + m_blockWidth - 1) / m_blockWidth);
        const std::size_t count = m_columns * std::size_t(isSeparate() ? m_wanted : 1);
        const std::int64_t most = heldBytesPerPixel * largestPicture();
        if (size > most / std::int64_t(count))
            failDecoding(m_file, QCoreApplication::translate(
                                     "TiffSamples",
                                     "its strips or tiles need more than the %1 bytes that the memory allows")
                                     .arg(most));
        m_blocks.resize(count);
        for (Block& block : m_blocks)
            block.bytes.resize(std::size_t(size));
    }

    void readBlock(std::size_t number, std::int64_t top) {
        Block& block = m_blocks[number];
        const auto x = std::uint32_t(leftOf(number));
        const auto y = std::uint32_t(top);
        const auto sample = std::uint16_t(isSeparate() ? m_choice.sample(planeOf(number)) : 0);
        const auto size = tmsize_t(block.bytes.size());
        const tmsize_t got =
            m_layout.tiled
                ? TIFFReadEncodedTile(m_tiff, TIFFComputeTile(m_tiff, x, y, 0, sample), block.bytes.data(),
                                      size)
                : TIFFReadEncodedStrip(m_tiff, TIFFComputeStrip(m_tiff, y, sample), block.bytes.data(), size);
        if (got < 0 && x == 0 && y == 0)
            failDecoding(m_file, m_tiff.firstError());
        block.filled = std::size_t(std::max<tmsize_t>(got, 0));
    }

    /// Samples that the file doesn't have stay 0.
    void fill(std::vector<float>& samples, std::size_t number, std::size_t rowOfBlock) const {
        const Block& block = m_blocks[number];
        const std::size_t perPixel = isSeparate() ? 1 : std::size_t(m_layout.samples);
        const std::size_t rowBytes =
            (std::size_t(m_blockWidth) * perPixel * std::size_t(m_layout.bits) + 7) / 8;
        const std::size_t rowAt = rowOfBlock * rowBytes;
        if (rowAt + rowBytes > block.filled)
            return;
        const std::uint8_t* row = &block.bytes[rowAt];
        const std::int64_t left = leftOf(number);
        const auto width = std::size_t(std::min<std::int64_t>(m_blockWidth, m_layout.width - left));
        float* to = &samples[std::size_t(left) * std::size_t(m_wanted)];
        if (isSeparate())
            load(row, 0, perPixel, width, to + planeOf(number));
        else
            for (int s = 0; s < m_wanted; ++s)
                load(row, std::size_t(m_choice.sample(s)), perPixel, width, to + s);
    }

    /// The sample of that number of each pixel.
    void load(const std::uint8_t* row, std::size_t sample, std::size_t perPixel, std::size_t width,
              float* to) const {
        const auto bits = std::size_t(m_layout.bits);
        if (m_load)
            return m_load(row + sample * bits / 8, perPixel * bits / 8, width, to, std::size_t(m_wanted));
        for (std::size_t pixel = 0; pixel < width; ++pixel, to += m_wanted)
            *to = packed(row, (pixel * perPixel + sample) * bits);
    }

    float packed(const std::uint8_t* row, std::size_t bit) const {
        unsigned value = 0;
        for (int i = 0; i < m_layout.bits; ++i, ++bit)
            value = value << 1 | (row[bit / 8] >> (7 - bit % 8) & 1);
        return float(value);
    }

    const TiffFile& m_tiff;
    const TiffLayout& m_layout;
    const FileUnderTest& m_file;
    SampleChoice m_choice;
    int m_wanted;
    LoadSamples m_load;
    std::int64_t m_blockWidth = 0;
    std::int64_t m_blockHeight = 0;
    std::size_t m_columns = 0;
    std::vector<Block> m_blocks; ///< from left to right, plane after plane
};

/// What counts as 0 and as 1. Integers use the range of unsigned ones; floating point does when it stays
/// between 0 and 1, else the range of the values that occur. Negative integers are black, as for libvips.
struct SampleRange {
    float low = 0;
    float high = 1;
    /// What is not a number is 0.
    float scaled(float value) const {
        const float unit = (value - low) / (high - low);
        return unit > 0 ? std::min(unit, 1.0F) : 0.0F;
    }
};

/// Reads all samples of floating point once.
SampleRange rangeOf(const TiffLayout& layout, SampleReader& reader) {
    if (layout.sampleFormat != SAMPLEFORMAT_IEEEFP)
        return {0, std::ldexp(1.0F, layout.bits) - 1};
    SampleRange range;
    reader.forEachRow([&range](int, const std::vector<float>& samples) {
        for (const float value : samples)
            if (std::isfinite(value)) {
                range.low = std::min(range.low, value);
                range.high = std::max(range.high, value);
            }
    });
    return range;
}

std::uint8_t byteOf(float unit) {
    return std::uint8_t(unit * 255 + 0.5F);
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

class LabPainter {
public:
    explicit LabPainter(const TiffLayout& layout) : m_lab(layout), m_row(std::size_t(layout.width) * 3) {}

    void paint(const std::vector<float>& samples, std::uint8_t* pixels) {
        for (std::size_t i = 0; i < m_row.size(); i += 3) {
            m_row[i] = m_lab.lightness(samples[i]);
            m_row[i + 1] = m_lab.colorAxis(samples[i + 1]);
            m_row[i + 2] = m_lab.colorAxis(samples[i + 2]);
        }
        m_conversion.convertRow(m_row.data(), pixels, int(m_row.size() / 3));
    }

private:
    LabConversion m_conversion;
    LabSamples m_lab;
    std::vector<double> m_row;
};

/// Cyan, magenta, yellow and black with alpha or without. Three inks are those without black, fewer begin
/// with black.
class InkPainter {
public:
    InkPainter(SampleChoice choice, SampleRange range, const TiffLayout& layout,
               const QByteArray& iccProfile) :
        m_conversion(iccProfile),
        m_choice(choice), m_range(range), m_isMultiplied(layout.extraSample == EXTRASAMPLE_ASSOCALPHA),
        m_inks(std::size_t(layout.width) * 4), m_colors(std::size_t(layout.width) * 3) {}

    void paint(const std::vector<float>& samples, std::uint8_t* pixel) {
        const std::size_t width = m_colors.size() / 3;
        const auto perPixel = std::size_t(m_choice.count());
        for (std::size_t x = 0; x < width; ++x)
            storeInks(&samples[x * perPixel], &m_inks[4 * x]);
        m_conversion.convertRow(m_inks.data(), m_colors.data(), int(width));
        for (std::size_t x = 0; x < width; ++x) {
            pixel = std::copy_n(&m_colors[3 * x], 3, pixel);
            if (m_choice.alpha >= 0)
                *pixel++ = byteOf(alphaOf(&samples[x * perPixel]));
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

    CmykConversion m_conversion;
    SampleChoice m_choice;
    SampleRange m_range;
    bool m_isMultiplied;
    std::vector<std::uint8_t> m_inks;
    std::vector<std::uint8_t> m_colors;
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

    void paint(const std::vector<float>& samples, std::uint8_t* pixel) const {
        const int channels = m_choice.alpha < 0 ? 3 : 4;
        const float* end = samples.data() + samples.size();
        for (const float* sample = samples.data(); sample < end;
             sample += m_choice.count(), pixel += channels)
            paintPixel(sample, pixel);
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
    SampleReader reader(tiff, layout, file, choice);
    Picture picture(layout.width, layout.height, choice.alpha < 0 ? 3 : 4);
    const PixelView target = picture.edit();
    const auto paint = [&](auto&& painter) {
        reader.forEachRow(
            [&](int y, const std::vector<float>& samples) { painter.paint(samples, target.row(y)); });
    };
    std::optional<TiffPalette> palette;
    if (layout.photometric == PHOTOMETRIC_PALETTE)
        palette.emplace(tiff, layout, file);
    if (isUnit)
        paint(UnitPainter(layout, rangeOf(layout, reader), choice, palette));
    else if (hasInks)
        paint(InkPainter(choice, rangeOf(layout, reader), layout, iccProfile));
    else
        paint(LabPainter(layout));
    return picture;
}

} // namespace tarsel
