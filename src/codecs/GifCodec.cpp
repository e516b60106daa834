// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ForeignCodecs.h"

#include "base/Stop.h"
#include "bytes/ByteReader.h"
#include "codecs/DecoderPool.h"
#include "codecs/Encoders.h"

namespace tarsel {

namespace {

/// The longest string of the code table, 4096 pixels, takes 12 bits.
constexpr std::int64_t PixelsPerByte = 4096;

bool sniffGif(const PictureSource& source) {
    const QByteArray bytes = source.start();
    return bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a");
}

/// Layout: signature, width 16, height 16, flags (bits of the palette less one in the low three).
PictureHeader gifHeader(const PictureSource& source, const QString& name) {
    const QByteArray start = source.start();
    const ByteReader reader(start, ByteOrder::Little);
    const int width = reader.word(6).value_or(0);
    const int height = reader.word(8).value_or(0);
    requirePlausibleSize({"GIF", name, source.size()}, width, height, PixelsPerByte);
    return {width, height, (reader.byte(10).value_or(0) & 7) + 1, 0};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

DecodedPicture decodeGif(const PictureSource& source, const QString& name, int) {
    const PictureHeader header = gifHeader(source, name);
    const DecoderTask task{DecoderFormat::Gif, source.all(), {header.width, header.height}};
    return {DecoderPool::shared().decode(task, {"GIF", name, task.bytes.size()}, currentStop()), {}};
}

} // namespace

Codec gifCodec() {
    return {.name = "GIF",
            .extensions = {QStringLiteral("gif")},
            .sniff = sniffGif,
            .header = gifHeader,
            .pageCount = onePage,
            .decode = decodeGif,
            .encode = encodeGif};
}

} // namespace tarsel
