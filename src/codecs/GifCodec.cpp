// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/GifCodec.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/CodecChecks.h"
#include "codecs/ColorProfile.h"
#include "codecs/Encoders.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

namespace tarsel {

namespace {

/// The longest string of the code table, 4096 pixels, takes 12 bits.
constexpr std::int64_t pixelsPerByte = 4096;

// Layout: signature, width 16, height 16, flags (0x80: a palette follows; bits of its index less one in the
// low three), background, aspect, palette. Then blocks: '!' an extension (label, data), ',' a frame (left,
// top, width, height, flags, palette, bits of its index, data), ';' the end. Data are in pieces of up to 255
// bytes after their size; a piece of size 0 ends them.
constexpr std::int64_t headerSize = 13;
constexpr std::int64_t frameHeaderSize = 9;
constexpr std::uint8_t paletteFlag = 0x80, interlaceFlag = 0x40;
constexpr std::uint8_t graphicControl = 0xF9, comment = 0xFE, application = 0xFF;

struct GifPalette {
    std::int64_t at = 0; ///< in the file; 0 for none: equal steps of gray then
    int colors = 0;
};

GifPalette paletteAt(std::int64_t at, std::uint8_t flags) {
    return flags & paletteFlag ? GifPalette{at, 2 << (flags & 7)} : GifPalette{};
}

std::int64_t sizeOf(const GifPalette& palette) {
    return std::int64_t(palette.colors) * 3;
}

/// The pieces of data from `at` on, joined. `at` is moved after them.
QByteArray joinedData(const ByteReader& reader, std::int64_t& at) {
    QByteArray joined;
    for (int size = 1; size > 0;) {
        size = reader.byte(at++).value_or(0);
        const auto room = std::clamp<std::int64_t>(reader.size() - at, 0, size);
        if (const auto piece = reader.slice(at, room))
            joined.append(reinterpret_cast<const char*>(piece->data()), qsizetype(room));
        at += size;
    }
    return joined;
}

struct Frame {
    EmbeddedMetadata metadata; ///< of the file
    int left = 0, top = 0, width = 0, height = 0;
    bool isInterlaced = false;
    int transparent = -1; ///< index, or -1
    GifPalette palette;
    std::int64_t data = 0; ///< where the bits of an index stand
};

/// The packet of an extension follows its name without pieces; a falling row of bytes, which leads each
/// reader of pieces to the end, follows it.
QByteArray packetOf(const ByteReader& reader, std::int64_t start, std::int64_t end) {
    constexpr std::int64_t nameSize = 12;
    const auto rest = reader.slice(start + nameSize, end - start - nameSize);
    if (!rest)
        return {};
    const QByteArray packet(reinterpret_cast<const char*>(rest->data()), qsizetype(rest->size()));
    return packet.left(std::max<qsizetype>(packet.lastIndexOf("\1\xFF\xFE\xFD"), 0));
}

/// What an extension says about the first frame and about the file; `at` is after its label.
void readExtension(const ByteReader& reader, std::uint8_t label, std::int64_t& at, Frame& frame) {
    const std::int64_t start = at;
    const QByteArray data = joinedData(reader, at);
    if (label == graphicControl && data.size() >= 4)
        frame.transparent = data[0] & 1 ? std::uint8_t(data[3]) : -1;
    else if (label == comment)
        frame.metadata.comments.push_back(data);
    else if (label == application && data.startsWith("ICCRGBG1012"))
        frame.metadata.iccProfile = data.sliced(11);
    else if (label == application && data.startsWith("XMP DataXMP"))
        frame.metadata.xmp = packetOf(reader, start, at);
}

/// The size of the canvas; some files don't say it and mean their first frame.
std::optional<PixelSize> screenOf(const ByteReader& reader) {
    const PixelSize screen{reader.word(6).value_or(0), reader.word(8).value_or(0)};
    return screen.width > 0 && screen.height > 0 ? std::optional(screen) : std::nullopt;
}

/// The first frame. Bytes between the blocks that start none are skipped.
std::optional<Frame> findFrame(const ByteReader& reader) {
    const std::uint8_t flags = reader.byte(10).value_or(0);
    const GifPalette shared = paletteAt(headerSize, flags);
    std::int64_t at = headerSize + sizeOf(shared);
    Frame frame;
    while (const auto introducer = reader.byte(at++)) {
        if (*introducer == ';')
            return std::nullopt;
        if (*introducer == '!') {
            const std::uint8_t label = reader.byte(at++).value_or(0);
            readExtension(reader, label, at, frame);
        } else if (*introducer == ',') {
            const auto word = [&](int offset) { return int(reader.word(at + offset).value_or(0)); };
            const std::uint8_t frameFlags = reader.byte(at + 8).value_or(0);
            frame.left = word(0), frame.top = word(2), frame.width = word(4), frame.height = word(6);
            if (!screenOf(reader))
                frame.left = frame.top = 0;
            frame.isInterlaced = frameFlags & interlaceFlag;
            frame.palette = paletteAt(at + frameHeaderSize, frameFlags);
            frame.data = at + frameHeaderSize + sizeOf(frame.palette);
            if (frame.palette.colors == 0)
                frame.palette = shared;
            return frame;
        }
    }
    return std::nullopt;
}

/// Draws the indexes of a frame one after the other.
class FramePainter {
public:
    FramePainter(const ByteReader& reader, const Frame& frame, PixelView canvas) :
        m_frame(frame), m_canvas(canvas) {
        for (int i = 0; i < 256; ++i) {
            const auto color = reader.slice(frame.palette.at + std::int64_t(i) * 3, 3);
            auto& entry = m_colors[std::size_t(i)];
            entry.fill(std::uint8_t(frame.palette.colors == 0 ? i : 0));
            if (i < frame.palette.colors && color)
                std::memcpy(entry.data(), color->data(), 3);
        }
    }

    /// No index to come has a place on the canvas.
    bool isFull() const {
        return m_row >= m_frame.height || (!m_frame.isInterlaced && m_frame.top + m_y >= m_canvas.height);
    }

    void put(std::uint8_t index) {
        const int x = m_frame.left + m_x, y = m_frame.top + m_y;
        if (index != m_frame.transparent && x < m_canvas.width && y < m_canvas.height) {
            std::uint8_t* pixel = m_canvas.pixel(x, y);
            std::memcpy(pixel, m_colors[index].data(), 3);
            pixel[3] = 255;
        }
        if (++m_x == m_frame.width)
            startRow();
    }

private:
    /// Interlaced rows come in four passes: every eighth from 0 and 4, every fourth from 2, every second.
    void startRow() {
        static constexpr struct { int start, step; } passes[] = {{0, 8}, {4, 8}, {2, 4}, {1, 2}};
        raiseIfStopped();
        m_x = 0;
        ++m_row;
        m_y += m_frame.isInterlaced ? passes[m_pass].step : 1;
        while (m_frame.isInterlaced && m_y >= m_frame.height && m_pass < 3)
            m_y = passes[++m_pass].start;
    }

    const Frame& m_frame;
    PixelView m_canvas;
    std::array<std::array<std::uint8_t, 3>, 256> m_colors;
    int m_x = 0, m_y = 0;
    int m_row = 0; ///< in the order of the file
    int m_pass = 0;
};

/// Codes of a growing number of bits, from the lowest bit on, stand for strings of indexes: a single index, a
/// known string, or the string before with its first index again. One code clears the table, one ends.
class LzwReader {
public:
    explicit LzwReader(const QByteArray& data, int indexBits) :
        m_data(data), m_indexBits(indexBits), m_clear(1 << indexBits) {
        clear();
    }

    /// False when the data end or break off before the painter has all its indexes.
    bool paint(FramePainter& painter) {
        while (!painter.isFull()) {
            const int code = nextCode();
            if (code < 0 || code == m_clear + 1 || code > m_count)
                return false;
            if (code == m_clear) {
                clear();
                continue;
            }
            if (code >= m_count && m_previous < 0)
                return false;
            putString(code, painter);
        }
        return true;
    }

private:
    static constexpr int maxCodes = 4096;
    static constexpr int maxCodeBits = 12;

    void clear() {
        m_codeBits = m_indexBits + 1;
        m_count = m_clear + 2;
        m_previous = -1;
    }

    int nextCode() {
        while (m_bitCount < m_codeBits) {
            if (m_at >= m_data.size())
                return -1;
            m_bits |= unsigned(std::uint8_t(m_data[m_at++])) << m_bitCount;
            m_bitCount += 8;
        }
        const int code = int(m_bits & ((1U << m_codeBits) - 1));
        m_bits >>= m_codeBits;
        m_bitCount -= m_codeBits;
        return code;
    }

    void putString(int code, FramePainter& painter) {
        int length = 0;
        int rest = code < m_count ? code : m_previous;
        if (code == m_count)
            m_string[std::size_t(length++)] = 0; // its first index again, known below
        for (; rest >= m_clear + 2; rest = m_prefix[std::size_t(rest)])
            m_string[std::size_t(length++)] = m_last[std::size_t(rest)];
        const auto first = std::uint8_t(rest);
        m_string[std::size_t(length++)] = first;
        if (code == m_count)
            m_string[0] = first;
        add(first);
        m_previous = code;
        while (length > 0 && !painter.isFull())
            painter.put(m_string[std::size_t(--length)]);
    }

    /// The string before and `last` become the next code, as long as there is one.
    void add(std::uint8_t last) {
        if (m_previous < 0 || m_count >= maxCodes)
            return;
        m_prefix[std::size_t(m_count)] = std::uint16_t(m_previous);
        m_last[std::size_t(m_count)] = last;
        if (++m_count == 1 << m_codeBits && m_codeBits < maxCodeBits)
            ++m_codeBits;
    }

    const QByteArray& m_data;
    int m_indexBits;
    int m_clear;
    qsizetype m_at = 0;
    unsigned m_bits = 0;
    int m_bitCount = 0;
    int m_codeBits = 0;
    int m_count = 0; ///< codes in use
    int m_previous = -1;
    std::array<std::uint16_t, maxCodes> m_prefix = {};
    std::array<std::uint8_t, maxCodes> m_last = {};
    std::array<std::uint8_t, maxCodes + 1> m_string = {}; ///< from its end
};

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"GIF", name, source.size()};
}

bool sniffGif(const PictureSource& source) {
    const QByteArray bytes = source.start();
    return bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a");
}

/// The frame may follow a profile or comment that is longer than the start of the file.
PixelSize firstFrameSize(const PictureSource& source) {
    const QByteArray bytes = source.all();
    const auto frame = findFrame(ByteReader(bytes, ByteOrder::Little));
    return frame ? PixelSize{frame->width, frame->height} : PixelSize{};
}

PictureHeader gifHeader(const PictureSource& source, const QString& name) {
    const QByteArray start = source.start();
    const ByteReader reader(start, ByteOrder::Little);
    const auto screen = screenOf(reader);
    const PixelSize size = screen ? *screen : firstFrameSize(source);
    requirePlausibleSize(fileOf(source, name), size.width, size.height, pixelsPerByte);
    return {size.width, size.height, (reader.byte(10).value_or(0) & 7) + 1, 0};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

bool isOpaque(ConstPixelView view) {
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x)
            if (view.pixel(x, y)[3] != 255)
                return false;
    return true;
}

Picture withoutAlpha(const Picture& picture) {
    const ConstPixelView from = picture.view();
    Picture opaque(from.width, from.height, 3);
    const PixelView to = opaque.edit();
    for (int y = 0; y < from.height; ++y)
        for (int x = 0; x < from.width; ++x)
            std::memcpy(to.pixel(x, y), from.pixel(x, y), 3);
    return opaque;
}

EmbeddedMetadata gifMetadata(const PictureSource& source, const QString&, int) {
    const QByteArray bytes = source.all();
    const auto frame = findFrame(ByteReader(bytes, ByteOrder::Little));
    return frame ? withRgbProfileOnly(frame->metadata) : EmbeddedMetadata{};
}

DecodedPicture decodeGif(const PictureSource& source, const QString& name, int) {
    constexpr int maxIndexBits = 8;
    const PictureHeader header = gifHeader(source, name);
    const FileUnderTest file = fileOf(source, name);
    const QByteArray bytes = source.all();
    const ByteReader reader(bytes, ByteOrder::Little);
    const auto frame = findFrame(reader);
    if (!frame || frame->width == 0 || frame->height == 0)
        failDecoding(file, QCoreApplication::translate("GifCodec", "no frame"));
    std::int64_t at = frame->data;
    const int indexBits = reader.byte(at++).value_or(0);
    if (indexBits < 1 || indexBits > maxIndexBits)
        failDecoding(file, QCoreApplication::translate("GifCodec", "indexes of %1 bits").arg(indexBits));
    const QByteArray data = joinedData(reader, at);
    if (data.isEmpty())
        failDecoding(file, QCoreApplication::translate("GifCodec", "no pixels"));
    Picture canvas(header.width, header.height, 4);
    const PixelView target = canvas.edit();
    std::memset(target.data, 0, std::size_t(target.stride) * std::size_t(target.height));
    FramePainter painter(reader, *frame, target);
    const bool isComplete = LzwReader(data, indexBits).paint(painter);
    return {isOpaque(canvas.view()) ? withoutAlpha(canvas) : canvas, withRgbProfileOnly(frame->metadata),
            isComplete ? QString() : QCoreApplication::translate("GifCodec", "file is truncated or damaged")};
}

} // namespace

Codec gifCodec() {
    return {.name = "GIF",
            .extensions = {QStringLiteral("gif")},
            .sniff = sniffGif,
            .header = gifHeader,
            .pageCount = onePage,
            .decode = decodeGif,
            .encode = encodeGif,
            .metadata = gifMetadata,
            .holdsProfile = false,
            .keepsTransparency = true};
}

} // namespace tarsel
