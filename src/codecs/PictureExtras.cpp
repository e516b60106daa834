// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureExtras.h"

#include "bytes/ByteReader.h"
#include "codecs/PictureFile.h"
#include "codecs/PsdReader.h"
#include "codecs/TiffDirectory.h"

#include <cstdlib>

namespace tarsel {

namespace {

constexpr int usualBits = 8;

/// The alpha mask stands in headers of 56 bytes and more.
PictureExtras ofBmp(const PictureSource& source) {
    constexpr int leastHeader = 56;
    const QByteArray start = source.bytes(0, 70);
    const ByteReader reader(start, ByteOrder::Little);
    PictureExtras extras;
    extras.hasTransparency = reader.dword(14).value_or(0) >= leastHeader && reader.dword(66).value_or(0) != 0;
    return extras;
}

/// Pieces of data follow their size; one of size 0 ends them.
std::int64_t afterPieces(const ByteReader& reader, std::int64_t at) {
    while (const int size = reader.byte(at++).value_or(0))
        at += size;
    return at;
}

std::int64_t gifPaletteSize(std::uint8_t flags) {
    return flags & 0x80 ? std::int64_t(6) << (flags & 7) : 0;
}

PictureExtras ofGif(const PictureSource& source) {
    constexpr std::uint8_t graphicControl = 0xF9;
    const QByteArray bytes = source.all();
    const ByteReader reader(bytes, ByteOrder::Little);
    PictureExtras extras{.frames = 0};
    std::int64_t at = 13 + gifPaletteSize(reader.byte(10).value_or(0));
    for (auto block = reader.byte(at++); block && block != ';'; block = reader.byte(at++)) {
        if (block == '!') {
            const bool isControl = reader.byte(at++) == graphicControl;
            extras.hasTransparency |= isControl && (reader.byte(at + 1).value_or(0) & 1);
            at = afterPieces(reader, at);
        } else if (block == ',') {
            ++extras.frames;
            constexpr int header = 9, bitsOfIndex = 1;
            at += header + gifPaletteSize(reader.byte(at + 8).value_or(0)) + bitsOfIndex;
            at = afterPieces(reader, at);
        }
    }
    return extras;
}

/// What counts stands in chunks before the pixels: size 32, name, data, check sum 32.
PictureExtras ofPng(const PictureSource& source) {
    constexpr int alphaFlag = 4, largestChunkRead = 32;
    PictureExtras extras;
    for (std::int64_t at = 8; at < source.size();) {
        const QByteArray chunk = source.bytes(at, 8 + largestChunkRead);
        const ByteReader reader(chunk, ByteOrder::Big);
        const QByteArray name = chunk.mid(4, 4);
        if (name == "IDAT")
            break;
        if (name == "IHDR") {
            extras.isDeep = reader.byte(16).value_or(0) > usualBits;
            extras.hasTransparency = reader.byte(17).value_or(0) & alphaFlag;
        } else if (name == "tRNS") {
            extras.hasTransparency = true;
        } else if (name == "acTL") {
            extras.frames = int(reader.dword(8).value_or(1));
        }
        at += 12 + std::int64_t(reader.dword(0).value_or(0));
    }
    return extras;
}

PictureExtras ofPsd(const PictureFile& file) {
    const PsdLayout layout = readPsdLayout(file.source(), {"PSD", file.name(), file.source().size()});
    const int layers = psdLayerCount(file.source(), layout);
    return {.hasLayers = std::abs(layers) > 1, .hasTransparency = layers<0, .isDeep = layout.bits> usualBits};
}

PictureExtras ofTiff(const PictureSource& source) {
    constexpr std::uint16_t bitsPerSample = 258, extraSamples = 338, layers = 37724;
    const TiffTree tree = readTiffTree(source);
    const auto first = [&](std::uint16_t tag) {
        const TiffDirectory::Entry* entry = tree.directory.find(tag);
        return entry ? ByteReader(entry->value, byteOrder(tree.bigEndian)).word(0).value_or(0) : 0;
    };
    return {.hasLayers = tree.directory.find(layers) != nullptr,
            .hasTransparency = first(extraSamples) != 0, // 0 is data of another kind
            .isDeep = first(bitsPerSample) > usualBits};
}

} // namespace

PictureExtras pictureExtras(const PictureFile& file) {
    const QString format = file.usualExtension();
    if (format == QLatin1String("bmp"))
        return ofBmp(file.source());
    if (format == QLatin1String("gif"))
        return ofGif(file.source());
    if (format == QLatin1String("png"))
        return ofPng(file.source());
    if (format == QLatin1String("psd"))
        return ofPsd(file);
    if (format == QLatin1String("tif"))
        return ofTiff(file.source());
    return {};
}

} // namespace tarsel
