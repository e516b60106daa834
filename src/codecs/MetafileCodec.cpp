// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/MetafileCodec.h"

#include "base/Stop.h"
#include "codecs/DecoderPool.h"
#include "codecs/MetafileHeader.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

/// A drawing takes no bytes for its size.
constexpr std::int64_t pixelsPerByte = 1'000'000;

std::optional<MetafileHeader> headerOf(const PictureSource& source) {
    const QByteArray start = source.start();
    return readMetafileHeader(
        {reinterpret_cast<const std::uint8_t*>(start.constData()), std::size_t(start.size())});
}

bool sniffWmf(const PictureSource& source) {
    const auto header = headerOf(source);
    return header && !header->isEnhanced;
}

bool sniffEmf(const PictureSource& source) {
    const auto header = headerOf(source);
    return header && header->isEnhanced;
}

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {sniffEmf(source) ? "EMF" : "WMF", name, source.size()};
}

/// A drawing of more than 50 million pixels, 3.5 square metres, is made smaller in proportion: it has no
/// pixels of its own that would be lost.
PixelSize pixelSize(const MetafileHeader& header) {
    constexpr double maxPixels = 50e6;
    const double factor = std::min(1.0, std::sqrt(maxPixels / header.width / header.height));
    const auto pixels = [&](double length) {
        return int(std::clamp(std::round(length * factor), 1.0, maxPixels));
    };
    return {pixels(header.width), pixels(header.height)};
}

PictureHeader metafileHeader(const PictureSource& source, const QString& name) {
    constexpr int bitsPerPixel = 24, dotsPerInch = 96;
    const FileUnderTest file = fileOf(source, name);
    const auto header = headerOf(source);
    if (!header)
        failDecoding(file, QCoreApplication::translate("MetafileCodec", "no header"));
    const PixelSize size = pixelSize(*header);
    requirePlausibleSize(file, size.width, size.height, pixelsPerByte);
    return {size.width, size.height, bitsPerPixel, dotsPerInch};
}

int onePage(const PictureSource&, const QString&) {
    return 1;
}

DecodedPicture draw(const PictureSource& source, const QString& name, PixelSize size) {
    return DecoderPool::shared().decode({DecoderFormat::Metafile, source.all(), size}, fileOf(source, name),
                                        currentStop());
}

DecodedPicture decodeMetafile(const PictureSource& source, const QString& name, int) {
    const PictureHeader header = metafileHeader(source, name);
    return draw(source, name, {header.width, header.height});
}

/// Lines and letters are as sharp at this size as at any other.
ReducedPicture drawMetafile(const PictureSource& source, const QString& name, PixelSize wanted) {
    const PictureHeader header = metafileHeader(source, name);
    return {draw(source, name, wanted).picture, {header.width, header.height}};
}

Codec metafileCodec(const char* name, QStringList extensions, bool (*sniff)(const PictureSource&)) {
    return {.name = name,
            .extensions = std::move(extensions),
            .sniff = sniff,
            .header = metafileHeader,
            .pageCount = onePage,
            .decode = decodeMetafile,
            .decodeReduced = drawMetafile,
            .needsExtension = true};
}

} // namespace

Codec wmfCodec() {
    return metafileCodec("WMF", {QStringLiteral("wmf"), QStringLiteral("emf")}, sniffWmf);
}

Codec emfCodec() {
    return metafileCodec("EMF", {QStringLiteral("emf"), QStringLiteral("wmf")}, sniffEmf);
}

} // namespace tarsel
