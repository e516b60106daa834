// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/BmpCodec.h"

#include "bytes/ByteReader.h"
#include "codecs/BmpReader.h"
#include "codecs/ColorProfile.h"
#include "codecs/Encoders.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

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

/// The JPEG or PNG file that a bitmap holds in place of its rows.
struct EmbeddedFile {
    const Codec* codec;
    PictureSource source;
};
std::optional<EmbeddedFile> embeddedFileOf(const BmpLayout& layout, const PictureSource& source) {
    if (!canHoldFile(layout))
        return std::nullopt;
    const std::int64_t rest = std::min(source.size() - layout.pixelOffset, PictureSource::largestReadAtOnce);
    const std::int64_t size = layout.dataSize > 0 ? std::min(layout.dataSize, rest) : rest;
    PictureSource embedded(source.bytes(layout.pixelOffset, size));
    const Codec* codec = codecForContent(embedded, {});
    const QLatin1String name(codec ? codec->name : "");
    if (name != QLatin1String("JPEG") && name != QLatin1String("PNG"))
        return std::nullopt;
    return EmbeddedFile{codec, std::move(embedded)};
}

PictureHeader bmpHeader(const PictureSource& source, const QString& name) {
    const BmpLayout layout = readBmpLayout(source, fileOf(source, name));
    if (const auto embedded = embeddedFileOf(layout, source))
        return embedded->codec->header(embedded->source, name);
    return {int(layout.width), int(std::abs(layout.height)), layout.bits, layout.dpi};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

/// The resolution, and the profile that a header of version 5 points to: type 32 at 56, the offset from the
/// header's start 32 at 112, size 32 at 116.
EmbeddedMetadata bmpMetadata(const PictureSource& source, const QString& name, int) {
    constexpr std::uint32_t embeddedProfile = 0x4D424544;
    const BmpLayout layout = readBmpLayout(source, fileOf(source, name));
    if (const auto embedded = embeddedFileOf(layout, source))
        return embedded->codec->metadata(embedded->source, name, 1);
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
    const FileUnderTest file = fileOf(source, name);
    if (const auto embedded = embeddedFileOf(readBmpLayout(source, file), source))
        return embedded->codec->decode(embedded->source, name, 1);
    BmpPicture bmp = readBmp(source, file);
    return {std::move(bmp.picture), bmpMetadata(source, name, 1), std::move(bmp.damage)};
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
            .metadata = bmpMetadata,
            .holdsProfile = false};
}

} // namespace tarsel
