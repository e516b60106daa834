// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PsdReader.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/ColorProfile.h"

#include <QCoreApplication>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

constexpr int maxChannels = 56, maxBits = 32;
/// A packed run of 128 bytes of 8 pixels takes two bytes.
constexpr std::int64_t pixelsPerByte = 512;

enum Mode { Bitmap = 0, Gray = 1, Indexed = 2, Rgb3 = 3, Cmyk = 4, Multichannel = 7, Duotone = 8, Lab = 9 };

// The file header: "8BPS", version 16 (2: PSB), six reserved bytes, channels 16, height 32, width 32, bits
// 16, colour mode 16. Then the colour mode data, the image resources and the layers, each after its size.
// Last the pixels: compression 16, when packed the sizes of all rows of all channels, then the rows channel
// by channel.
constexpr std::int64_t headerSize = 26;
constexpr std::int64_t paletteOffset = headerSize + 4;
constexpr std::int64_t paletteSize = 3 * 256; // all red values, then green, then blue

/// Of up to 8 bytes; as far as they are in the file.
std::uint64_t numberAt(const PictureSource& source, std::int64_t at, int size) {
    const QByteArray stored = source.bytes(at, size).rightJustified(8, '\0');
    return loadNumber<std::uint64_t>(stored.constData(), ByteOrder::Big);
}

/// What follows a section with a size of `sizeBytes` at `at`; the file's end at most.
std::int64_t endOfSection(const PictureSource& source, std::int64_t at, int sizeBytes) {
    const std::uint64_t size = numberAt(source, at, sizeBytes);
    const std::int64_t start = at + sizeBytes;
    const std::int64_t room = std::max<std::int64_t>(0, source.size() - start);
    return start + std::int64_t(std::min<std::uint64_t>(size, std::uint64_t(room)));
}

int colorChannels(const PsdLayout& layout) {
    switch (layout.mode) {
    case Rgb3:
    case Lab:
        return 3;
    case Cmyk:
        return 4;
    case Multichannel:
        return layout.channels >= 3 ? std::min(layout.channels, 4) : 1;
    default:
        return 1;
    }
}

[[noreturn]] void refuseKind(const PsdLayout& layout, const FileUnderTest& file) {
    failDecoding(
        file, QCoreApplication::translate("PsdReader", "%1 channels of %2 bits, mode %3, are not supported")
                  .arg(layout.channels)
                  .arg(layout.bits)
                  .arg(layout.mode));
}

void requireKnownKind(const PsdLayout& layout, const FileUnderTest& file) {
    const bool knownMode =
        (layout.mode >= Bitmap && layout.mode <= Cmyk) || (layout.mode >= Multichannel && layout.mode <= Lab);
    const bool knownBits = layout.mode == Bitmap ? layout.bits == 1
                           : layout.mode == Indexed
                               ? layout.bits == 8
                               : layout.bits == 8 || layout.bits == 16 || layout.bits == 32;
    if (!knownMode || !knownBits || layout.channels < colorChannels(layout))
        refuseKind(layout, file);
}

/// The rows of the merged picture, channel by channel.
class PsdRows {
public:
    PsdRows(const PictureSource& source, const PsdLayout& layout, const FileUnderTest& file, int channels) :
        m_source(source), m_height(layout.height),
        m_rowBytes((std::int64_t(layout.width) * layout.bits + 7) / 8) {
        if (layout.pixels + 2 >= source.size())
            failDecoding(file, QCoreApplication::translate("PsdReader",
                                                           "file is truncated before its merged picture"));
        const auto compression = numberAt(source, layout.pixels, 2);
        if (compression > 1)
            failDecoding(
                file,
                QCoreApplication::translate("PsdReader", "compression %1 is not supported").arg(compression));
        const std::int64_t wanted = std::int64_t(channels) * m_height;
        m_offsets.reserve(std::size_t(wanted) + 1);
        m_isPacked = compression == 1;
        if (!m_isPacked) {
            for (std::int64_t i = 0; i <= wanted; ++i)
                m_offsets.push_back(layout.pixels + 2 + i * m_rowBytes);
            return;
        }
        const int countBytes = layout.isLarge ? 4 : 2;
        const QByteArray counts = source.bytes(layout.pixels + 2, wanted * countBytes);
        const ByteReader reader(counts, ByteOrder::Big);
        m_offsets.push_back(layout.pixels + 2 + std::int64_t(layout.channels) * m_height * countBytes);
        for (std::int64_t i = 0; i < wanted; ++i) {
            const auto size = layout.isLarge ? std::int64_t(reader.dword(i * 4).value_or(0))
                                             : std::int64_t(reader.word(i * 2).value_or(0));
            m_offsets.push_back(m_offsets.back() + size);
        }
    }

    std::int64_t rowBytes() const { return m_rowBytes; }
    bool endEarly() const { return m_offsets.back() > m_source.size(); }

    /// False when the file doesn't have the complete row; what is missing stays as it was.
    bool read(int channel, int y, std::uint8_t* target) const {
        const std::size_t row = std::size_t(channel) * std::size_t(m_height) + std::size_t(y);
        const std::int64_t size = m_offsets[row + 1] - m_offsets[row];
        if (!m_isPacked)
            return m_source.read(m_offsets[row], target, m_rowBytes) == m_rowBytes;
        return unpack(m_source.bytes(m_offsets[row], size), target);
    }

private:
    /// Runs: a count below 128 precedes count + 1 bytes, one above 128 a byte that is repeated 257 - count
    /// times.
    bool unpack(const QByteArray& packed, std::uint8_t* target) const {
        std::int64_t done = 0;
        qsizetype at = 0;
        while (at < packed.size() && done < m_rowBytes) {
            const int count = std::uint8_t(packed[at++]);
            if (count == 128)
                continue;
            const bool isRun = count > 128;
            const std::int64_t size =
                std::min<std::int64_t>(isRun ? 257 - count : count + 1, m_rowBytes - done);
            if ((isRun ? 1 : size) > packed.size() - at)
                return false;
            if (isRun)
                std::memset(target + done, std::uint8_t(packed[at]), std::size_t(size));
            else
                std::memcpy(target + done, packed.constData() + at, std::size_t(size));
            at += qsizetype(isRun ? 1 : size);
            done += size;
        }
        return done == m_rowBytes;
    }

    const PictureSource& m_source;
    std::int64_t m_height;
    std::int64_t m_rowBytes;
    bool m_isPacked = false;
    std::vector<std::int64_t> m_offsets; ///< of each row, and where the last one ends
};

/// Turns samples of one row, as 8 bits a channel, into pixels.
class PsdPainter {
public:
    PsdPainter(const PictureSource& source, const PsdLayout& layout, const QByteArray& iccProfile) :
        m_layout(layout), m_width(std::size_t(layout.width)), m_colors(colorChannels(layout)),
        m_cmyk(m_colors == 4 ? iccProfile : QByteArray()), m_buffer(m_width * 4), m_labBuffer(m_width * 3) {
        if (layout.mode == Indexed)
            m_palette = source.bytes(paletteOffset, paletteSize).leftJustified(paletteSize, 0);
    }

    /// `planes` holds the colour channels, a row each, 0 to 255, or for L*a*b* 0 to 1.
    void paint(const std::vector<std::vector<float>>& planes, std::uint8_t* rgb) {
        switch (m_layout.mode) {
        case Cmyk:
        case Multichannel:
            m_colors >= 3 ? paintInks(planes, rgb) : paintGray(planes, rgb);
            break;
        case Lab:
            paintLab(planes, rgb);
            break;
        case Indexed:
            for (std::size_t x = 0; x < m_width; ++x)
                for (std::size_t c = 0; c < 3; ++c)
                    rgb[3 * x + c] = std::uint8_t(m_palette[qsizetype(256 * c + std::size_t(planes[0][x]))]);
            break;
        case Rgb3:
            paintRgb(planes[0].data(), planes[1].data(), planes[2].data(), rgb);
            break;
        default:
            paintGray(planes, rgb);
        }
    }

    /// Rounds a sample of 0 to 255.
    static std::uint8_t byteOf(float value) { return std::uint8_t(value + 0.5F); }

private:
    void paintRgb(const float* red, const float* green, const float* blue, std::uint8_t* rgb) const {
        for (std::size_t x = 0; x < m_width; ++x) {
            rgb[3 * x] = byteOf(red[x]);
            rgb[3 * x + 1] = byteOf(green[x]);
            rgb[3 * x + 2] = byteOf(blue[x]);
        }
    }

    void paintGray(const std::vector<std::vector<float>>& planes, std::uint8_t* rgb) const {
        for (std::size_t x = 0; x < m_width; ++x)
            std::memset(rgb + 3 * x, byteOf(planes[0][x]), 3);
    }

    /// The file stores the ink that is missing.
    void paintInks(const std::vector<std::vector<float>>& planes, std::uint8_t* rgb) {
        for (std::size_t x = 0; x < m_width; ++x)
            for (std::size_t c = 0; c < 4; ++c)
                m_buffer[4 * x + c] =
                    c < std::size_t(m_colors) ? std::uint8_t(255 - byteOf(planes[c][x])) : std::uint8_t(0);
        m_cmyk.convertRow(m_buffer.data(), rgb, m_layout.width);
    }

    void paintLab(const std::vector<std::vector<float>>& planes, std::uint8_t* rgb) {
        const double unit = m_layout.bits == 8 ? 255 : 65535.0 / 256;
        for (std::size_t x = 0; x < m_width; ++x) {
            m_labBuffer[3 * x] = double(planes[0][x]) / 255 * 100;
            m_labBuffer[3 * x + 1] = double(planes[1][x]) / 255 * unit - 128;
            m_labBuffer[3 * x + 2] = double(planes[2][x]) / 255 * unit - 128;
        }
        m_lab.convertRow(m_labBuffer.data(), rgb, m_layout.width);
    }

    const PsdLayout& m_layout;
    std::size_t m_width;
    int m_colors;
    CmykConversion m_cmyk;
    LabConversion m_lab;
    QByteArray m_palette;
    std::vector<std::uint8_t> m_buffer;
    std::vector<double> m_labBuffer;
};

/// Samples of any depth as 0 to 255; of a bitmap, ink is 1.
void widenRow(const std::vector<std::uint8_t>& bytes, int bits, std::vector<float>& samples) {
    const auto widen = [&](auto sample) {
        for (std::size_t x = 0; x < samples.size(); ++x)
            samples[x] = sample(x);
    };
    const std::uint8_t* stored = bytes.data();
    switch (bits) {
    case 1:
        widen([=](std::size_t x) { return stored[x / 8] >> (7 - x % 8) & 1 ? 0.0F : 255.0F; });
        break;
    case 8:
        widen([=](std::size_t x) { return float(stored[x]); });
        break;
    case 16:
        widen([=](std::size_t x) {
            return float(loadNumber<std::uint16_t>(stored + 2 * x, ByteOrder::Big)) / 257;
        });
        break;
    default:
        widen([=](std::size_t x) {
            const auto bitPattern = loadNumber<std::uint32_t>(stored + 4 * x, ByteOrder::Big);
            const auto value = std::bit_cast<float>(bitPattern);
            return std::isfinite(value) ? std::clamp(value, 0.0F, 1.0F) * 255 : 0.0F;
        });
    }
}

/// Whether a row holds a colour that is no mixture with white in the proportion that alpha says.
bool provesPlainColors(const std::vector<std::vector<float>>& planes, const PsdLayout& layout) {
    constexpr float tolerance = 4;
    const std::vector<float>& alpha = planes.back();
    const std::size_t mixed = layout.mode == Indexed ? 0 : layout.mode == Lab ? 1 : planes.size() - 1;
    for (std::size_t c = 0; c < mixed; ++c)
        for (std::size_t x = 0; x < alpha.size(); ++x)
            if (alpha[x] > 0 && planes[c][x] < 255 - alpha[x] - tolerance)
                return true;
    return false;
}

/// Colours without the white that is mixed with them where they are transparent.
std::uint8_t withoutWhite(int value, int alpha) {
    return std::uint8_t(alpha == 0 ? value : std::clamp((value - 255 + alpha) * 255 / alpha, 0, 255));
}

void storeRow(const std::vector<std::uint8_t>& rgb, const std::vector<float>* alpha, PixelView target,
              int y) {
    if (!alpha) {
        std::memcpy(target.row(y), rgb.data(), rgb.size());
        return;
    }
    for (int x = 0; x < target.width; ++x) {
        std::uint8_t* pixel = target.pixel(x, y);
        std::copy_n(&rgb[std::size_t(x) * 3], 3, pixel);
        pixel[3] = PsdPainter::byteOf((*alpha)[std::size_t(x)]);
    }
}

void removeWhite(PixelView target) {
    for (int y = 0; y < target.height; ++y)
        for (int x = 0; x < target.width; ++x) {
            std::uint8_t* pixel = target.pixel(x, y);
            for (int c = 0; c < 3; ++c)
                pixel[c] = withoutWhite(pixel[c], pixel[3]);
        }
}

} // namespace

PsdLayout readPsdLayout(const PictureSource& source, const FileUnderTest& file) {
    const QByteArray header = source.bytes(0, headerSize);
    const ByteReader reader(header, ByteOrder::Big);
    PsdLayout layout;
    layout.isLarge = reader.word(4).value_or(0) == 2;
    layout.channels = reader.word(12).value_or(0);
    const auto height = std::int64_t(reader.dword(14).value_or(0));
    const auto width = std::int64_t(reader.dword(18).value_or(0));
    requirePlausibleSize(file, width, height, pixelsPerByte);
    layout.width = int(width);
    layout.height = int(height);
    layout.bits = reader.word(22).value_or(0);
    layout.mode = reader.word(24).value_or(0);
    if (layout.channels > maxChannels || layout.bits > maxBits)
        refuseKind(layout, file);
    layout.resources = endOfSection(source, headerSize, 4);
    layout.layers = endOfSection(source, layout.resources, 4);
    layout.pixels = endOfSection(source, layout.layers, layout.isLarge ? 8 : 4);
    return layout;
}

bool isInksOrLab(const PsdLayout& layout) {
    return layout.mode == Cmyk || layout.mode == Multichannel || layout.mode == Lab;
}

/// Files of 16 and 32 bits have their layers in a tagged block: "8BIM", key, size 32, data.
int psdLayerCount(const PictureSource& source, const PsdLayout& layout) {
    constexpr int maxBlocks = 100;
    const int sizeBytes = layout.isLarge ? 8 : 4;
    const std::int64_t layerInfo = layout.layers + sizeBytes;
    const auto countAt = [&](std::int64_t at) { return int(std::int16_t(numberAt(source, at, 2))); };
    if (layout.pixels <= layerInfo)
        return 0;
    if (numberAt(source, layerInfo, sizeBytes) >= 2)
        return countAt(layerInfo + sizeBytes);
    std::int64_t at = endOfSection(source, endOfSection(source, layerInfo, sizeBytes), 4);
    for (int i = 0; i < maxBlocks && at + 12 <= layout.pixels; ++i) {
        const QByteArray key = source.bytes(at + 4, 4);
        if (key == "Lr16" || key == "Lr32")
            return countAt(at + 12);
        const std::int64_t data = at + 12;
        at = data + (endOfSection(source, at + 8, 4) - data + 3) / 4 * 4;
    }
    return 0;
}

PsdPicture readPsd(const PictureSource& source, const FileUnderTest& file, const QByteArray& iccProfile) {
    const PsdLayout layout = readPsdLayout(source, file);
    requireKnownKind(layout, file);
    const int colors = colorChannels(layout);
    const bool alpha = layout.channels > colors && psdLayerCount(source, layout) < 0;
    const PsdRows rows(source, layout, file, colors + (alpha ? 1 : 0));
    Picture picture(layout.width, layout.height, alpha ? 4 : 3);
    const PixelView target = picture.edit();
    PsdPainter painter(source, layout, iccProfile);
    std::vector<std::uint8_t> bytes(std::size_t(rows.rowBytes()));
    std::vector<std::uint8_t> rgb(std::size_t(layout.width) * 3);
    std::vector<std::vector<float>> planes(std::size_t(colors) + (alpha ? 1 : 0),
                                           std::vector<float>(std::size_t(layout.width)));
    QString damage;
    bool isMixed = alpha;
    for (int y = 0; y < layout.height; ++y) {
        raiseIfStopped();
        for (std::size_t channel = 0; channel < planes.size(); ++channel) {
            std::ranges::fill(bytes, std::uint8_t(255));
            if (!rows.read(int(channel), y, bytes.data()) && damage.isEmpty())
                damage =
                    rows.endEarly()
                        ? QCoreApplication::translate("PsdReader", "file is truncated")
                        : QCoreApplication::translate("PsdReader", "rows of the merged picture are damaged");
            widenRow(bytes, layout.bits, planes[channel]);
        }
        isMixed = isMixed && !provesPlainColors(planes, layout);
        painter.paint(planes, rgb.data());
        storeRow(rgb, alpha ? &planes.back() : nullptr, target, y);
    }
    if (isMixed)
        removeWhite(target);
    return {std::move(picture), std::move(damage)};
}

} // namespace tarsel
