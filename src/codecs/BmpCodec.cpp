// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/BmpCodec.h"

#include "base/TrappedError.h"
#include "bytes/Numbers.h"
#include "codecs/BmpReader.h"
#include "codecs/Flatten.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>

namespace tarsel {

namespace {

// The file header: "BM", size 32, reserved 32, offset of the pixels 32. The info header follows, starting
// with its size.
constexpr qsizetype FileHeaderSize = 14;
constexpr qsizetype SmallestHeaderSize = 12;
constexpr qsizetype WindowsHeaderSize = 40;

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"BMP", name, source.size()};
}

bool sniffBmp(const PictureSource& source) {
    return source.start().startsWith("BM") && source.size() > FileHeaderSize + SmallestHeaderSize;
}

PictureHeader bmpHeader(const PictureSource& source, const QString& name) {
    const BmpLayout layout = readBmpLayout(source, fileOf(source, name));
    return {int(layout.width), int(std::abs(layout.height)), layout.bits, layout.dpi};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

DecodedPicture decodeBmp(const PictureSource& source, const QString& name, int) {
    BmpPicture bmp = readBmp(source, fileOf(source, name));
    return {std::move(bmp.picture), {}, std::move(bmp.damage)};
}

class LittleEndianWriter {
public:
    explicit LittleEndianWriter(QByteArray& bytes) : m_bytes(bytes) {}
    LittleEndianWriter& word(quint16 value) { return put(value); }
    LittleEndianWriter& dword(quint32 value) { return put(value); }

private:
    template <class Number>
    LittleEndianWriter& put(Number value) {
        appendNumber(m_bytes, value, ByteOrder::Little);
        return *this;
    }
    QByteArray& m_bytes;
};

} // namespace

QByteArray encodeBmp(const Picture& picture, const SaveSettings&, const EmbeddedMetadata&) {
    const ConstPixelView view = picture.view();
    const qsizetype stride = (qsizetype(view.width) * 3 + 3) / 4 * 4;
    const qsizetype pixelOffset = FileHeaderSize + WindowsHeaderSize;
    const qsizetype size = pixelOffset + stride * view.height;
    if (size > qsizetype(UINT32_MAX))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("BmpCodec", "BMP encoder: the picture is larger than 4 GB"));
    QByteArray bytes;
    bytes.reserve(size);
    bytes += "BM";
    LittleEndianWriter header(bytes);
    header.dword(quint32(size)).dword(0).dword(quint32(pixelOffset)).dword(quint32(WindowsHeaderSize));
    header.dword(quint32(view.width)).dword(quint32(view.height)).word(1).word(24);
    header.dword(0).dword(quint32(stride * view.height)).dword(0).dword(0).dword(0).dword(0);
    bytes.resize(size);
    for (int y = 0; y < view.height; ++y) {
        auto* row =
            reinterpret_cast<std::uint8_t*>(bytes.data() + pixelOffset + stride * (view.height - 1 - y));
        flattenRow(view, y, white, row);
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
