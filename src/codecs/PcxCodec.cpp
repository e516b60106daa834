// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PcxCodec.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/CodecChecks.h"
#include "codecs/Encoders.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

/// A run of 63 bytes of 8 pixels takes two bytes.
constexpr std::int64_t pixelsPerByte = 256;

// Layout: mark 10, version, encoding (1: runs), bits of a pixel in one plane, the edges left, top, right,
// bottom (16 bits each), resolution (2 times 16), palette of 16 colours, a reserved byte, planes, bytes of a
// row in one plane (16). The pixels follow the 128 bytes: row by row, in a row plane by plane. A palette of
// 256 colours follows them: a mark 12 and 768 bytes, the last of the file.
constexpr qsizetype headerSize = 128;
constexpr int paletteOffset = 16;
constexpr int planesOffset = 65;
constexpr int rowBytesOffset = 66;
constexpr qsizetype largePaletteSize = 768;
constexpr std::uint8_t largePaletteMark = 12;

struct PcxLayout {
    bool hasRuns = true;
    int width = 0;
    int height = 0;
    int bits = 0; ///< of a pixel in one plane
    int planes = 0;
    int rowBytes = 0; ///< of one plane
    double dpi = 0;
};

using Palette = std::array<Rgb, 256>;

bool sniffPcx(const PictureSource& source) {
    const QByteArray bytes = source.start();
    const auto at = [&](qsizetype i) { return quint8(bytes[i]); };
    return bytes.size() >= headerSize && at(0) == 10 && at(1) <= 5 && at(1) != 1 && at(2) <= 1 &&
           (at(3) == 1 || at(3) == 2 || at(3) == 4 || at(3) == 8) && at(planesOffset) <= 4;
}

PcxLayout readLayout(const QByteArray& bytes, const FileUnderTest& file) {
    if (bytes.size() < headerSize)
        failDecoding(file, QCoreApplication::translate("PcxCodec", "no header"));
    const ByteReader reader(bytes, ByteOrder::Little);
    const auto word = [&](int at) { return int(*reader.word(at)); };
    PcxLayout layout;
    layout.hasRuns = *reader.byte(2) == 1;
    layout.bits = *reader.byte(3);
    layout.width = word(8) - word(4) + 1;
    layout.height = word(10) - word(6) + 1;
    layout.dpi = word(12);
    layout.planes = std::max<int>(1, *reader.byte(planesOffset));
    layout.rowBytes = word(rowBytesOffset);
    requirePlausibleSize(file, layout.width, layout.height, pixelsPerByte);
    return layout;
}

/// One and two planes of few bits are indexes, as are four; planes of a byte are the colours themselves.
void requireKnownKind(const PcxLayout& layout, const FileUnderTest& file) {
    const bool trueColor = layout.bits == 8 && (layout.planes == 3 || layout.planes == 4);
    const bool indexed = layout.bits * layout.planes <= 8 && layout.planes <= 4;
    if (!trueColor && !indexed)
        failDecoding(file, QCoreApplication::translate("PcxCodec", "%1 planes of %2 bits are not known")
                               .arg(layout.planes)
                               .arg(layout.bits));
    if (layout.rowBytes < (layout.width * layout.bits + 7) / 8)
        failDecoding(file, QCoreApplication::translate("PcxCodec", "its rows are shorter than its width"));
}

/// The bytes of the rows with their runs spread. Where the data end early, zeros follow.
class RowSource {
public:
    RowSource(const QByteArray& bytes, qsizetype end, bool hasRuns) :
        m_bytes(bytes), m_end(end), m_hasRuns(hasRuns) {}

    /// False when there was nothing left for it.
    bool read(std::vector<std::uint8_t>& row) {
        const bool any = m_run > 0 || m_at < m_end;
        m_isComplete = m_isComplete && any;
        for (std::uint8_t& byte : row)
            byte = next();
        return any;
    }
    bool isComplete() const { return m_isComplete; }
    qsizetype position() const { return m_at; }

private:
    std::uint8_t next() {
        if (m_run == 0)
            startRun();
        --m_run;
        return m_value;
    }

    /// The two top bits of a byte mark a run of up to 63; the value follows.
    void startRun() {
        m_run = 1;
        m_value = stored();
        if (m_hasRuns && (m_value & 0xC0) == 0xC0) {
            m_run = std::max(1, m_value & 0x3F);
            m_value = stored();
        }
    }

    std::uint8_t stored() {
        m_isComplete = m_isComplete && m_at < m_end;
        return m_at < m_end ? std::uint8_t(m_bytes[m_at++]) : 0;
    }

    const QByteArray& m_bytes;
    qsizetype m_end;
    bool m_hasRuns;
    bool m_isComplete = true;
    qsizetype m_at = headerSize;
    int m_run = 0;
    std::uint8_t m_value = 0;
};

Rgb storedColor(const QByteArray& bytes, qsizetype at) {
    return {std::uint8_t(bytes[at]), std::uint8_t(bytes[at + 1]), std::uint8_t(bytes[at + 2])};
}

/// Equal steps from black to white.
Palette grayPalette(int colors) {
    Palette palette;
    for (int i = 0; i < colors; ++i) {
        const auto level = std::uint8_t(i * 255 / (colors - 1));
        palette[std::size_t(i)] = {level, level, level};
    }
    return palette;
}

/// Where the pixels end at the latest: at a palette of 256 colours, else at the end of the file.
qsizetype endOfPixels(const QByteArray& bytes, const PcxLayout& layout) {
    const qsizetype mark = bytes.size() - largePaletteSize - 1;
    const bool isMarked = layout.bits * layout.planes > 4 && layout.bits * layout.planes <= 8 &&
                          mark >= headerSize && quint8(bytes[mark]) == largePaletteMark;
    return isMarked ? mark : bytes.size();
}

/// The palette of a file with indexes. Up to 16 colours are in the header, 256 at the end of the file;
/// where they don't, indexes are steps from black to white. Writers fill the header's palette in also in
/// version 3, which is said to have none.
Palette readPalette(const QByteArray& bytes, const PcxLayout& layout) {
    const int bits = layout.bits * layout.planes;
    Palette palette = grayPalette(1 << bits);
    if (bits > 4) {
        if (const qsizetype mark = endOfPixels(bytes, layout); mark < bytes.size())
            for (qsizetype i = 0; i < 256; ++i)
                palette[std::size_t(i)] = storedColor(bytes, mark + 1 + 3 * i);
        return palette;
    }
    Palette stored = palette;
    const int colors = 1 << bits;
    for (int i = 0; i < colors; ++i)
        stored[std::size_t(i)] = storedColor(bytes, paletteOffset + 3 * i);
    const bool isFilledIn =
        std::any_of(stored.begin(), stored.begin() + colors, [&](Rgb color) { return color != stored[0]; });
    return isFilledIn ? stored : palette;
}

class PcxPainter {
public:
    PcxPainter(const PcxLayout& layout, const Palette& palette, PixelView target) :
        m_layout(layout), m_palette(palette), m_target(target) {}

    void paint(const std::vector<std::uint8_t>& row, int y) const {
        if (m_layout.bits == 8 && m_layout.planes >= 3)
            paintColors(row, y);
        else
            paintIndexes(row, y);
    }

private:
    void paintColors(const std::vector<std::uint8_t>& row, int y) const {
        for (int x = 0; x < m_target.width; ++x)
            for (int c = 0; c < m_target.channels; ++c)
                m_target.pixel(x, y)[c] =
                    row[std::size_t(c) * std::size_t(m_layout.rowBytes) + std::size_t(x)];
    }

    void paintIndexes(const std::vector<std::uint8_t>& row, int y) const {
        for (int x = 0; x < m_target.width; ++x) {
            const Rgb color = m_palette[indexAt(row, x)];
            std::uint8_t* pixel = m_target.pixel(x, y);
            pixel[0] = color.red;
            pixel[1] = color.green;
            pixel[2] = color.blue;
        }
    }

    /// The first plane holds the lowest bits.
    std::size_t indexAt(const std::vector<std::uint8_t>& row, int x) const {
        const int bit = x * m_layout.bits;
        const int shift = 8 - m_layout.bits - bit % 8;
        const unsigned mask = (1U << m_layout.bits) - 1;
        unsigned index = 0;
        for (int plane = 0; plane < m_layout.planes; ++plane) {
            const unsigned byte =
                row[std::size_t(plane) * std::size_t(m_layout.rowBytes) + std::size_t(bit / 8)];
            index |= (byte >> shift & mask) << plane * m_layout.bits;
        }
        return index;
    }

    const PcxLayout& m_layout;
    const Palette& m_palette;
    PixelView m_target;
};

PictureHeader pcxHeader(const PictureSource& source, const QString& name) {
    const PcxLayout layout = readLayout(source.start(), {"PCX", name, source.size()});
    return {layout.width, layout.height, layout.bits * layout.planes, layout.dpi};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

DecodedPicture decodePcx(const PictureSource& source, const QString& name, int) {
    const QByteArray bytes = source.all();
    const FileUnderTest file{"PCX", name, bytes.size()};
    const PcxLayout layout = readLayout(bytes, file);
    requireKnownKind(layout, file);
    const Palette palette = layout.bits * layout.planes <= 8 ? readPalette(bytes, layout) : Palette{};
    const bool alpha = layout.bits == 8 && layout.planes == 4;
    Picture picture(layout.width, layout.height, alpha ? 4 : 3);
    const PcxPainter painter(layout, palette, picture.edit());
    const qsizetype end = endOfPixels(bytes, layout);
    RowSource rows(bytes, end, layout.hasRuns);
    std::vector<std::uint8_t> row(std::size_t(layout.rowBytes) * std::size_t(layout.planes));
    bool goesOn = true;
    for (int y = 0; y < layout.height; ++y) {
        raiseIfStopped();
        goesOn = goesOn && rows.read(row); // what was read last, from beyond the end, is zeros
        if (!goesOn && y == 0)
            failDecoding(file, QCoreApplication::translate("PcxCodec", "no pixels"));
        painter.paint(row, y);
    }
    EmbeddedMetadata metadata;
    metadata.resolution = {layout.dpi, layout.dpi};
    const bool isPaletteCut = layout.bits * layout.planes == 8 && end == bytes.size() &&
                              rows.position() < end && quint8(bytes[rows.position()]) == largePaletteMark;
    return {std::move(picture), std::move(metadata),
            rows.isComplete() && !isPaletteCut
                ? QString()
                : QCoreApplication::translate("PcxCodec", "file is truncated")};
}

} // namespace

Codec pcxCodec() {
    return {.name = "PCX",
            .extensions = {QStringLiteral("pcx")},
            .sniff = sniffPcx,
            .header = pcxHeader,
            .pageCount = onePage,
            .decode = decodePcx,
            .encode = encodePcx,
            .holdsProfile = false};
}

} // namespace tarsel
