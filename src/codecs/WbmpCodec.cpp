// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/WbmpCodec.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/CodecChecks.h"
#include "codecs/Encoders.h"
#include "codecs/SourceStream.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

constexpr std::int64_t pixelsPerByte = 8;

struct WbmpHeader {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::int64_t pixelOffset = 0;
};

/// A number in bytes of 7 bits, all but the last with the top bit set.
std::optional<std::int64_t> readMultiByte(const ByteReader& reader, std::int64_t& at) {
    std::int64_t value = 0;
    for (int i = 0; i < 4; ++i) {
        const auto byte = reader.byte(at++);
        if (!byte)
            return std::nullopt;
        value = value << 7 | (*byte & 0x7F);
        if (!(*byte & 0x80))
            return value;
    }
    return std::nullopt;
}

/// Layout: type 0, fixed header 0, width, height, rows of one bit a pixel padded to bytes.
std::optional<WbmpHeader> readHeader(const PictureSource& source) {
    const QByteArray start = source.start();
    const ByteReader reader(start, ByteOrder::Little);
    if (reader.word(0) != 0)
        return std::nullopt;
    std::int64_t at = 2;
    const auto width = readMultiByte(reader, at);
    const auto height = readMultiByte(reader, at);
    if (!width || !height || *width == 0 || *height == 0)
        return std::nullopt;
    return WbmpHeader{*width, *height, at};
}

bool sniffWbmp(const PictureSource& source) {
    const auto header = readHeader(source);
    return header && (header->width + 7) / 8 <= source.size() - header->pixelOffset; // a row at least
}

PictureHeader wbmpHeader(const PictureSource& source, const QString& name) {
    const FileUnderTest file{"WBMP", name, source.size()};
    const auto header = readHeader(source);
    if (!header)
        failDecoding(file, QCoreApplication::translate("WbmpCodec", "no header"));
    requirePlausibleSize(file, header->width, header->height, pixelsPerByte);
    return {int(header->width), int(header->height), 1, 0};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

DecodedPicture decodeWbmp(const PictureSource& source, const QString& name, int) {
    const PictureHeader header = wbmpHeader(source, name);
    Picture picture(header.width, header.height, 3);
    const PixelView target = picture.edit();
    SourceStream stream(source, readHeader(source)->pixelOffset);
    QString damage;
    std::vector<std::uint8_t> row(std::size_t(header.width + 7) / 8);
    for (int y = 0; y < header.height; ++y) {
        raiseIfStopped();
        if (damage.isEmpty() && stream.read(row.data(), qsizetype(row.size())) < qsizetype(row.size())) {
            damage = QCoreApplication::translate("WbmpCodec", "file is truncated");
            if (y == 0)
                failDecoding({"WBMP", name, source.size()}, damage);
            std::ranges::fill(row, std::uint8_t(255));
        }
        for (int x = 0; x < header.width; ++x)
            std::memset(target.pixel(x, y), row[std::size_t(x) / 8] >> (7 - x % 8) & 1 ? 255 : 0, 3);
    }
    return {std::move(picture), {}, std::move(damage)};
}

} // namespace

Codec wbmpCodec() {
    return {.name = "WBMP",
            .extensions = {QStringLiteral("wbmp"), QStringLiteral("wbm")},
            .sniff = sniffWbmp,
            .header = wbmpHeader,
            .pageCount = onePage,
            .decode = decodeWbmp,
            .encode = encodeWbmp,
            .needsExtension = true,
            .holdsProfile = false};
}

} // namespace tarsel
