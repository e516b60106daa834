// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ForeignCodecs.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/ColorProfile.h"
#include "codecs/DecoderPool.h"
#include "embedded/ResourceBlocks.h"

namespace tarsel {

namespace {

/// A packed run of 128 bytes of 8 pixels takes two bytes.
constexpr std::int64_t PixelsPerByte = 512;

// Layout of the file header: "8BPS", version 16, six bytes of nothing, channels 16, height 32, width 32, bits
// 16, colour mode 16. Then follow, each behind its size of 32 bits, the colour mode data and the image
// resources.
constexpr std::int64_t ColorModeDataOffset = 26;

/// Image resources that say something of the picture, and nothing of the layers and views of this file.
constexpr quint16 CarriedResources[] = {0x03ED, ResourceBlocks::iptcNumber, 0x040A, 0x040B, 0x0425};
constexpr quint16 ProfileResource = 0x040F;
constexpr quint16 ExifResource = 0x0422;
constexpr quint16 XmpResource = 0x0424;

bool sniffPsd(const QByteArray& bytes) {
    return bytes.startsWith("8BPS");
}

PictureHeader psdHeader(const QByteArray& bytes, const QString& name) {
    const ByteReader reader(bytes, ByteOrder::Big);
    const auto height = std::int64_t(reader.dword(14).value_or(0));
    const auto width = std::int64_t(reader.dword(18).value_or(0));
    requirePlausibleSize({"PSD", name, bytes.size()}, width, height, PixelsPerByte);
    return {int(width), int(height), reader.word(12).value_or(0) * reader.word(22).value_or(0), 0};
}

int onePage(const QByteArray&, const QString&) {
    return 1;
}

/// Empty when the sizes lead beyond the file.
QByteArray resourceSection(const QByteArray& bytes) {
    const ByteReader reader(bytes, ByteOrder::Big);
    const std::int64_t sizeAt = ColorModeDataOffset + 4 + reader.dword(ColorModeDataOffset).value_or(0);
    const auto section = reader.slice(sizeAt + 4, reader.dword(sizeAt).value_or(0));
    return section ? QByteArrayView(*section).toByteArray() : QByteArray();
}

EmbeddedMetadata psdMetadata(const QByteArray& bytes, const QString&) {
    const ResourceBlocks all(resourceSection(bytes));
    EmbeddedMetadata metadata;
    for (const quint16 number : CarriedResources)
        if (all.contains(number))
            metadata.resources += ResourceBlocks::block(number, all.data(number));
    metadata.exif = all.data(ExifResource);
    metadata.xmp = all.data(XmpResource);
    metadata.iccProfile = all.data(ProfileResource);
    return withRgbProfileOnly(std::move(metadata));
}

DecodedPicture decodePsd(const QByteArray& bytes, const QString& name, int) {
    psdHeader(bytes, name);
    return {
        DecoderPool::shared().decode(DecoderFormat::Psd, bytes, {"PSD", name, bytes.size()}, currentStop()),
        psdMetadata(bytes, name)};
}

} // namespace

Codec psdCodec() {
    return {.name = "PSD",
            .extensions = {QStringLiteral("psd")},
            .sniff = sniffPsd,
            .header = psdHeader,
            .pageCount = onePage,
            .decode = decodePsd,
            .metadata = psdMetadata};
}

} // namespace tarsel
