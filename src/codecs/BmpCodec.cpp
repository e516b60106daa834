// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/BmpCodec.h"

#include "bytes/ByteReader.h"
#include "codecs/BmpReader.h"
#include "codecs/ColorProfile.h"
#include "codecs/Encoders.h"

#include <algorithm>
#include <cstdlib>

namespace tarsel {

namespace {

// The file header: "BM", size 32, reserved 32, offset of the pixels 32. The info header follows, starting
// with its size.
constexpr qsizetype fileHeaderSize = 14;
constexpr qsizetype smallestHeaderSize = 12;
constexpr std::uint32_t version5Size = 124;
constexpr std::uint32_t largestProfile = 16U << 20;

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"BMP", name, source.size()};
}

bool sniffBmp(const PictureSource& source) {
    return source.start().startsWith("BM") && source.size() > fileHeaderSize + smallestHeaderSize;
}

PictureHeader bmpHeader(const PictureSource& source, const QString& name) {
    const BmpLayout layout = readBmpLayout(source, fileOf(source, name));
    return {int(layout.width), int(std::abs(layout.height)), layout.bits, layout.dpi};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

/// The resolution, and the profile that a header of version 5 points to: type 32 at 56, the offset from the
/// header's start 32 at 112, size 32 at 116.
EmbeddedMetadata bmpMetadata(const PictureSource& source, const QString& name) {
    constexpr std::uint32_t embeddedProfile = 0x4D424544;
    const BmpLayout layout = readBmpLayout(source, fileOf(source, name));
    EmbeddedMetadata metadata;
    metadata.resolution = {layout.dpi, layout.dpi};
    const QByteArray header = source.bytes(fileHeaderSize, version5Size);
    const ByteReader reader(header, ByteOrder::Little);
    if (layout.headerSize >= version5Size && reader.dword(56) == embeddedProfile)
        metadata.iccProfile = source.bytes(fileHeaderSize + reader.dword(112).value_or(0),
                                           std::min(reader.dword(116).value_or(0), largestProfile));
    return withRgbProfileOnly(std::move(metadata));
}

DecodedPicture decodeBmp(const PictureSource& source, const QString& name, int) {
    BmpPicture bmp = readBmp(source, fileOf(source, name));
    return {std::move(bmp.picture), bmpMetadata(source, name), std::move(bmp.damage)};
}

} // namespace

Codec bmpCodec() {
    return {.name = "BMP",
            .extensions = {QStringLiteral("bmp"), QStringLiteral("dib")},
            .sniff = sniffBmp,
            .header = bmpHeader,
            .pageCount = onePage,
            .decode = decodeBmp,
            .encode = encodeBmp,
            .metadata = bmpMetadata};
}

} // namespace tarsel
