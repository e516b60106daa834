#include "imaging/codecs/ForeignCodecs.h"

#include "imaging/codecs/ByteReader.h"
#include "imaging/codecs/DecoderProcess.h"

#include <algorithm>

namespace tarsel {

namespace {

/// A run of 63 bytes of 8 pixels takes two bytes.
constexpr std::int64_t PixelsPerByte = 256;

/// Layout: mark 10, version, encoding, bits of a pixel in one plane, the edges left, top, right, bottom (16
/// bits each), the resolution, .., at 65 the number of planes.
constexpr int PlanesOffset = 65;

bool sniffPcx(const QByteArray& bytes) {
    constexpr qsizetype headerSize = 128;
    const auto at = [&](qsizetype i) { return quint8(bytes[i]); };
    return bytes.size() >= headerSize && at(0) == 10 && at(1) <= 5 && at(1) != 1 && at(2) <= 1 &&
           (at(3) == 1 || at(3) == 2 || at(3) == 4 || at(3) == 8) && at(PlanesOffset) <= 4;
}

PictureHeader pcxHeader(const QByteArray& bytes, const QString& name) {
    const ByteReader reader(bytes, false);
    const auto edge = [&](int at) { return int(reader.word(at).value_or(0)); };
    const int width = edge(8) - edge(4) + 1;
    const int height = edge(10) - edge(6) + 1;
    requirePlausibleSize({"PCX", name, bytes.size()}, width, height, PixelsPerByte);
    const int planes = std::max<int>(1, reader.byte(PlanesOffset).value_or(1));
    return {width, height, reader.byte(3).value_or(0) * planes, double(edge(12))};
}

int onePage(const QByteArray&, const QString&) {
    return 1;
}

DecodedPicture decodePcx(const QByteArray& bytes, const QString& name, int) {
    pcxHeader(bytes, name);
    return {DecoderProcess::shared().decode(DecoderFormat::Pcx, bytes, {"PCX", name, bytes.size()}), {}};
}

} // namespace

Codec pcxCodec() {
    return {.name = "PCX",
            .extensions = {QStringLiteral("pcx")},
            .sniff = sniffPcx,
            .header = pcxHeader,
            .pageCount = onePage,
            .decode = decodePcx};
}

} // namespace tarsel
