// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/BmpCodec.h"

#include "base/TrappedError.h"
#include "bytes/ByteReader.h"
#include "codecs/CodecChecks.h"
#include "codecs/Flatten.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace tarsel {

namespace {

// The file header: "BM", size 32, reserved 32, offset of the pixels 32. The info header follows, its size
// first.
constexpr qsizetype FileHeaderSize = 14;
constexpr qsizetype OffsetOfPixelOffset = 10;
constexpr quint32 CoreHeaderSize = 12;     // sizes of 16 bits
constexpr quint32 ShortOs2HeaderSize = 16; // ends behind the bit count
constexpr quint32 WindowsHeaderSize = 40;
constexpr quint32 MasksHeaderSize = 52;
constexpr quint32 AlphaMaskHeaderSize = 56;
constexpr quint32 Version4HeaderSize = 108;

/// A run of 255 pixels takes two bytes; nothing is denser but skipped pixels.
constexpr std::int64_t PixelsPerByte = 128;

struct BmpFacts {
    quint32 headerSize = 0;
    qint64 width = 0;
    qint64 height = 0; ///< below 0: rows run from the top
    int bits = 0;
    double dpi = 0;
    qint64 pixelOffset = 0;
};

/// A header that its file is too short for reads as zeros, which the size check refuses.
BmpFacts readFacts(const QByteArray& bytes) {
    const ByteReader reader(bytes, ByteOrder::Little);
    BmpFacts facts;
    facts.pixelOffset = reader.dword(OffsetOfPixelOffset).value_or(0);
    facts.headerSize = reader.dword(FileHeaderSize).value_or(0);
    if (facts.headerSize == CoreHeaderSize) {
        facts.width = reader.word(18).value_or(0);
        facts.height = reader.word(20).value_or(0);
        facts.bits = reader.word(24).value_or(0);
        return facts;
    }
    facts.width = qint32(reader.dword(18).value_or(0));
    facts.height = qint32(reader.dword(22).value_or(0));
    facts.bits = reader.word(28).value_or(0);
    if (facts.headerSize >= WindowsHeaderSize)
        facts.dpi = qint32(reader.dword(38).value_or(0)) * 0.0254;
    return facts;
}

BmpFacts checkedFacts(const FileUnderTest& file, const QByteArray& bytes) {
    const BmpFacts facts = readFacts(bytes);
    requirePlausibleSize(file, facts.width, std::abs(facts.height), PixelsPerByte);
    if (facts.pixelOffset >= bytes.size())
        failDecoding(file, QStringLiteral("its pixels lie behind its end"));
    return facts;
}

bool sniffBmp(const QByteArray& bytes) {
    return bytes.startsWith("BM") && bytes.size() > FileHeaderSize + qsizetype(CoreHeaderSize);
}

PictureHeader bmpHeader(const QByteArray& bytes, const QString& name) {
    const BmpFacts facts = checkedFacts({"BMP", name, bytes.size()}, bytes);
    return {int(facts.width), int(std::abs(facts.height)), facts.bits, facts.dpi};
}

int onePage(const QByteArray&, const QString&) {
    return 1;
}

/// The header that says the same as one that Qt doesn't know, with zeros behind: the short OS/2 header, and
/// the Windows headers that end behind their three or four bit masks.
quint32 knownHeaderSize(quint32 headerSize) {
    switch (headerSize) {
    case ShortOs2HeaderSize:
        return WindowsHeaderSize;
    case MasksHeaderSize:
    case AlphaMaskHeaderSize:
        return Version4HeaderSize;
    default:
        return headerSize;
    }
}

QByteArray withKnownHeader(const QByteArray& bytes, quint32 headerSize) {
    const quint32 knownSize = knownHeaderSize(headerSize);
    if (knownSize == headerSize)
        return bytes;
    QByteArray known = bytes;
    known.insert(FileHeaderSize + qsizetype(headerSize), QByteArray(knownSize - headerSize, 0));
    qToLittleEndian(knownSize, known.data() + FileHeaderSize);
    const auto pixels = qFromLittleEndian<quint32>(known.constData() + OffsetOfPixelOffset);
    if (pixels >= FileHeaderSize + headerSize && pixels < quint32(bytes.size()))
        qToLittleEndian(pixels + knownSize - headerSize, known.data() + OffsetOfPixelOffset);
    return known;
}

Picture pictureOf(const QImage& image) {
    const bool alpha = image.hasAlphaChannel();
    const QImage rows = image.convertToFormat(alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    Picture picture(rows.width(), rows.height(), alpha ? 4 : 3);
    const PixelView target = picture.edit();
    for (int y = 0; y < target.height; ++y)
        std::memcpy(target.row(y), rows.constScanLine(y), std::size_t(target.stride));
    return picture;
}

/// The size was checked before. The limit is one of the process and set before the first use.
void liftAllocationLimit() {
    static std::once_flag once;
    std::call_once(once, [] { QImageReader::setAllocationLimit(0); });
}

DecodedPicture decodeBmp(const QByteArray& bytes, const QString& name, int) {
    const FileUnderTest file{"BMP", name, bytes.size()};
    const BmpFacts facts = checkedFacts(file, bytes);
    QByteArray readable = withKnownHeader(bytes, facts.headerSize);
    QBuffer buffer(&readable);
    buffer.open(QIODevice::ReadOnly);
    liftAllocationLimit();
    QImageReader reader(&buffer, "bmp");
    const QImage image = reader.read();
    if (image.isNull())
        failDecoding(file, reader.errorString());
    return {pictureOf(image), {}};
}

class LittleEndianWriter {
public:
    explicit LittleEndianWriter(QByteArray& bytes) : m_bytes(bytes) {}
    LittleEndianWriter& word(quint16 value) { return put(value); }
    LittleEndianWriter& dword(quint32 value) { return put(value); }

private:
    template <class Number>
    LittleEndianWriter& put(Number value) {
        char raw[sizeof value];
        qToLittleEndian(value, raw);
        m_bytes.append(raw, sizeof value);
        return *this;
    }
    QByteArray& m_bytes;
};

} // namespace

QByteArray encodeBmp(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata&) {
    const ConstPixelView view = picture.view();
    const qsizetype stride = (qsizetype(view.width) * 3 + 3) / 4 * 4;
    const qsizetype pixelOffset = FileHeaderSize + WindowsHeaderSize;
    const qsizetype size = pixelOffset + stride * view.height;
    if (size > qsizetype(UINT32_MAX))
        fail(ErrorNumber::InvalidCall, QStringLiteral("BMP encoder: the picture is larger than 4 GB"));
    QByteArray bytes;
    bytes.reserve(size);
    bytes += "BM";
    LittleEndianWriter header(bytes);
    header.dword(quint32(size)).dword(0).dword(quint32(pixelOffset)).dword(WindowsHeaderSize);
    header.dword(quint32(view.width)).dword(quint32(view.height)).word(1).word(24);
    header.dword(0).dword(quint32(stride * view.height)).dword(0).dword(0).dword(0).dword(0);
    bytes.resize(size);
    for (int y = 0; y < view.height; ++y) {
        auto* row =
            reinterpret_cast<std::uint8_t*>(bytes.data() + pixelOffset + stride * (view.height - 1 - y));
        flattenRow(view, y, resolveColor(settings.BackColor), row);
        for (qsizetype x = 0; x < view.width; ++x)
            std::swap(row[3 * x], row[3 * x + 2]);
        std::fill(row + qsizetype(view.width) * 3, row + stride, std::uint8_t(0));
    }
    return bytes;
}

Codec bmpCodec() {
    return {.name = "BMP",
            .extensions = {QStringLiteral("bmp"), QStringLiteral("dib")},
            .sniff = sniffBmp,
            .header = bmpHeader,
            .pageCount = onePage,
            .decode = decodeBmp,
            .encode = encodeBmp};
}

} // namespace tarsel
