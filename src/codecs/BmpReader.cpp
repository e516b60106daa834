// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/BmpReader.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/SourceStream.h"
#include "pixels/Color.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

// The file header: "BM", size 32, reserved 32, offset of the pixels 32. The info header follows, starting
// with its own size. Rows run from the bottom unless the height is negative.
constexpr qsizetype infoHeaderOffset = 14;
constexpr std::uint32_t coreHeaderSize = 12; // sizes of 16 bits, palette of 3 bytes a colour
constexpr std::uint32_t shortOs2HeaderSize = 16;
constexpr std::uint32_t windowsHeaderSize = 40;
constexpr std::uint32_t alphaMaskHeaderSize = 56;
constexpr std::uint32_t os2HeaderSize = 64;
constexpr qsizetype maskOffset = 54; // after a header of 40 bytes, in a longer one

enum Compression : std::uint32_t { None, Rle8, Rle4, BitFields, Rle24, AlphaBitFields = 6 };

/// A run of 255 pixels takes two bytes; only skipped pixels are denser.
constexpr std::int64_t pixelsPerByte = 128;

/// One colour of a pixel of 16 or 32 bits.
struct Channel {
    std::uint32_t mask = 0;

    std::uint8_t of(std::uint32_t pixel) const {
        if (mask == 0)
            return 0;
        const int shift = std::countr_zero(mask);
        const std::uint64_t largest = mask >> shift;
        return std::uint8_t((((pixel & mask) >> shift) * 255ULL + largest / 2) / largest);
    }
};

struct Masks {
    Channel red, green, blue, alpha;
};

bool hasRuns(const BmpLayout& layout) {
    return layout.compression == Rle8 || layout.compression == Rle4 || layout.compression == Rle24;
}

bool hasMasks(const BmpLayout& layout) {
    return layout.compression == BitFields || layout.compression == AlphaBitFields;
}

/// Headers of 40 bytes are followed by their masks, longer ones contain them.
std::int64_t paletteOffset(const BmpLayout& layout) {
    const std::int64_t end = infoHeaderOffset + std::int64_t(layout.headerSize);
    if (layout.headerSize != windowsHeaderSize || !hasMasks(layout))
        return end;
    return end + (layout.compression == AlphaBitFields ? 16 : 12);
}

Masks masksOf(const BmpLayout& layout, const ByteReader& reader) {
    if (!hasMasks(layout))
        return layout.bits == 16 ? Masks{{0x7C00}, {0x03E0}, {0x001F}, {}}
                                 : Masks{{0xFF0000}, {0x00FF00}, {0x0000FF}, {}};
    const auto mask = [&](int index) { return Channel{reader.dword(maskOffset + 4 * index).value_or(0)}; };
    const bool alpha = layout.compression == AlphaBitFields || layout.headerSize >= alphaMaskHeaderSize;
    return {mask(0), mask(1), mask(2), alpha ? mask(3) : Channel{}};
}

using Palette = std::array<Rgb, 256>;

/// Some files have fewer colours than their depth allows and don't say so: the palette ends where the pixels
/// start. Missing colours are black.
Palette paletteOf(const BmpLayout& layout, const ByteReader& reader) {
    const int entrySize = layout.headerSize == coreHeaderSize ? 3 : 4;
    const std::int64_t start = paletteOffset(layout);
    const std::int64_t room = std::max<std::int64_t>(0, layout.pixelOffset - start) / entrySize;
    const std::int64_t colors = std::min<std::int64_t>(room, std::int64_t(1) << layout.bits);
    Palette palette = {};
    for (std::int64_t i = 0; i < colors; ++i)
        if (const auto bgr = reader.slice(start + i * entrySize, 3))
            palette[std::size_t(i)] = {std::uint8_t((*bgr)[2]), std::uint8_t((*bgr)[1]),
                                       std::uint8_t((*bgr)[0])};
    return palette;
}

void requireKnownKind(const BmpLayout& layout, const FileUnderTest& file) {
    const bool isOs2 = layout.headerSize == os2HeaderSize;
    const bool known = layout.compression == None || (layout.compression == Rle8 && layout.bits == 8) ||
                       (layout.compression == Rle4 && layout.bits == 4) ||
                       (layout.compression == Rle24 && layout.bits == 24) ||
                       (hasMasks(layout) && !isOs2 && (layout.bits == 16 || layout.bits == 32));
    static constexpr int depths[] = {1, 2, 4, 8, 16, 24, 32};
    if (!known || std::ranges::count(depths, layout.bits) == 0)
        failDecoding(file,
                     QCoreApplication::translate("BmpReader", "compression %1 of %2 bits is not supported")
                         .arg(layout.compression)
                         .arg(layout.bits));
}

/// Paints the rows of one file in the order in which it stores them.
class BmpPainter {
public:
    BmpPainter(const BmpLayout& layout, const PictureSource& source, Picture& picture) :
        m_layout(layout), m_stream(source, layout.pixelOffset), m_target(picture.edit()) {
        const QByteArray start = source.start();
        const ByteReader reader(start, ByteOrder::Little);
        m_masks = masksOf(layout, reader);
        if (layout.bits <= 8)
            m_palette = paletteOf(layout, reader);
        std::memset(m_target.data, 255, std::size_t(m_target.stride) * std::size_t(m_target.height));
    }

    /// Returns what is wrong; rows that the file doesn't have stay white.
    QString paint() { return hasRuns(m_layout) ? paintRuns() : paintRows(); }

    bool hasPainted() const { return m_row > 0; }

private:
    std::uint8_t* nextRow() {
        raiseIfStopped();
        const int y = m_layout.height < 0 ? m_row : m_target.height - 1 - m_row;
        ++m_row;
        return m_target.row(y);
    }

    QString paintRows() {
        const qsizetype used = (qsizetype(m_target.width) * m_layout.bits + 7) / 8;
        std::vector<std::uint8_t> row(std::size_t((used + 3) / 4 * 4));
        while (m_row < m_target.height) {
            if (m_stream.read(row.data(), qsizetype(row.size())) < used) // the padding may be missing
                return QCoreApplication::translate("BmpReader", "file is truncated");
            paintRow(row, nextRow());
        }
        return {};
    }

    void paintRow(const std::vector<std::uint8_t>& row, std::uint8_t* pixel) const {
        for (int x = 0; x < m_target.width; ++x, pixel += m_target.channels)
            if (m_layout.bits <= 8)
                paintColor(m_palette[indexAt(row, x)], pixel);
            else if (m_layout.bits == 24)
                std::reverse_copy(&row[std::size_t(x) * 3], &row[std::size_t(x) * 3] + 3, pixel);
            else
                paintMasked(row, x, pixel);
    }

    std::size_t indexAt(const std::vector<std::uint8_t>& row, int x) const {
        const int bit = x % (8 / m_layout.bits) * m_layout.bits;
        const unsigned byte = row[std::size_t(x) * std::size_t(m_layout.bits) / 8];
        return byte >> (8 - m_layout.bits - bit) & ((1U << m_layout.bits) - 1);
    }

    void paintMasked(const std::vector<std::uint8_t>& row, int x, std::uint8_t* pixel) const {
        const std::uint8_t* stored = &row[std::size_t(x) * std::size_t(m_layout.bits) / 8];
        const std::uint32_t value = m_layout.bits == 16
                                        ? loadNumber<std::uint16_t>(stored, ByteOrder::Little)
                                        : loadNumber<std::uint32_t>(stored, ByteOrder::Little);
        paintColor({m_masks.red.of(value), m_masks.green.of(value), m_masks.blue.of(value)}, pixel);
        if (m_target.channels == 4)
            pixel[3] = m_masks.alpha.of(value);
    }

    static void paintColor(Rgb color, std::uint8_t* pixel) {
        pixel[0] = color.red;
        pixel[1] = color.green;
        pixel[2] = color.blue;
    }

    /// Runs: count and index (two indexes with 4 bits, blue, green and red with 24); or 0 and 0 end of row, 1
    /// end of picture, 2 and how far to skip right and up, else the count of pixels that follow, padded to
    /// 16 bits. Skipped pixels have index 0, or are black.
    QString paintRuns() {
        m_colors.assign(std::size_t(m_target.width), m_palette[0]);
        while (m_row < m_target.height) {
            const int count = m_stream.byte();
            const int value = m_stream.byte();
            if (value < 0)
                return QCoreApplication::translate("BmpReader", "file is truncated");
            if (count > 0)
                putRun(count, value);
            else if (value == 1)
                finishRows(m_target.height);
            else if (value == 0)
                finishRows(m_row + 1);
            else if (value == 2)
                skipPixels();
            else
                putPixels(value);
        }
        return {};
    }

    std::uint8_t nextByte() { return std::uint8_t(std::max(m_stream.byte(), 0)); }

    void put(Rgb color) {
        if (m_x < m_target.width)
            m_colors[std::size_t(m_x++)] = color;
    }
    void putIndex(int index) { put(m_palette[std::size_t(index)]); }

    /// The colour whose first byte is `blue`.
    Rgb colorAfter(int blue) {
        const std::uint8_t green = nextByte();
        return {nextByte(), green, std::uint8_t(blue)};
    }

    void putRun(int count, int value) {
        const Rgb color = m_layout.bits == 24 ? colorAfter(value) : m_palette[std::size_t(value)];
        for (int i = 0; i < count; ++i)
            if (m_layout.bits == 4)
                putIndex(i % 2 ? value & 15 : value >> 4);
            else
                put(color);
    }

    void putPixels(int count) {
        const int bytes = (count * m_layout.bits + 7) / 8;
        for (int i = 0; i < count; ++i)
            if (m_layout.bits == 24)
                put(colorAfter(nextByte()));
            else if (m_layout.bits == 8)
                putIndex(nextByte());
            else
                i += putPair(nextByte(), i + 1 < count);
        if (bytes % 2)
            m_stream.byte();
    }

    /// Returns 1 when the second one is used.
    int putPair(int value, bool both) {
        putIndex(value >> 4);
        if (both)
            putIndex(value & 15);
        return both ? 1 : 0;
    }

    void skipPixels() {
        const int right = nextByte();
        const int up = nextByte();
        const int x = std::min(m_x + right, m_target.width);
        if (up > 0)
            finishRows(m_row + up);
        m_x = x;
    }

    void finishRows(int end) {
        while (m_row < std::min(end, m_target.height)) {
            std::uint8_t* pixel = nextRow();
            for (const Rgb color : m_colors) {
                paintColor(color, pixel);
                pixel += m_target.channels;
            }
            std::ranges::fill(m_colors, m_palette[0]);
        }
        m_x = 0;
    }

    const BmpLayout& m_layout;
    SourceStream m_stream;
    PixelView m_target;
    Masks m_masks;
    Palette m_palette = {};
    std::vector<Rgb> m_colors; ///< of the present row, with runs
    int m_row = 0;             ///< in the order of the file
    int m_x = 0;
};

} // namespace

BmpLayout readBmpLayout(const PictureSource& source, const FileUnderTest& file) {
    const QByteArray start = source.start();
    const ByteReader reader(start, ByteOrder::Little);
    BmpLayout layout;
    layout.pixelOffset = reader.dword(10).value_or(0);
    layout.headerSize = reader.dword(infoHeaderOffset).value_or(0);
    if (layout.headerSize == coreHeaderSize) {
        layout.width = reader.word(18).value_or(0);
        layout.height = reader.word(20).value_or(0);
        layout.bits = reader.word(24).value_or(0);
    } else {
        layout.width = std::int32_t(reader.dword(18).value_or(0));
        layout.height = std::int32_t(reader.dword(22).value_or(0));
        layout.bits = reader.word(28).value_or(0);
    }
    if (layout.headerSize > shortOs2HeaderSize)
        layout.compression = reader.dword(30).value_or(0);
    if (layout.headerSize >= windowsHeaderSize) {
        layout.dataSize = reader.dword(34).value_or(0);
        layout.dpi = std::int32_t(reader.dword(38).value_or(0)) * 0.0254;
    }
    if (!canHoldFile(layout)) // which have limits of their own
        requirePlausibleSize(file, layout.width, std::abs(layout.height), pixelsPerByte);
    if (layout.pixelOffset >= source.size())
        failDecoding(file,
                     QCoreApplication::translate("BmpReader", "pixel data starts past the end of the file"));
    return layout;
}

BmpPicture readBmp(const PictureSource& source, const FileUnderTest& file) {
    const BmpLayout layout = readBmpLayout(source, file);
    requirePlausibleSize(file, layout.width, std::abs(layout.height), pixelsPerByte);
    requireKnownKind(layout, file);
    const QByteArray start = source.start();
    const bool alpha =
        layout.bits > 8 && masksOf(layout, ByteReader(start, ByteOrder::Little)).alpha.mask != 0;
    Picture picture(int(layout.width), int(std::abs(layout.height)), alpha ? 4 : 3);
    BmpPainter painter(layout, source, picture);
    QString damage = painter.paint();
    if (!painter.hasPainted())
        failDecoding(file, damage);
    return {std::move(picture), std::move(damage)};
}

} // namespace tarsel
