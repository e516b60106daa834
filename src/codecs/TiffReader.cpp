// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffCodec.h"

#include "codecs/ColorProfile.h"
#include "codecs/TiffMetadata.h"
#include "codecs/TiffPixels.h"

#include <QByteArrayView>
#include <algorithm>
#include <cmath>
#include <string_view>

namespace tarsel {

namespace {

/// White pages in fax coding, and runs in the others, are very dense.
constexpr std::int64_t PixelsPerByte = 20'000;

bool sniffTiff(const QByteArray& bytes) {
    constexpr std::string_view Signatures[] = {{"II*\0", 4}, {"MM\0*", 4}, {"II+\0", 4}, {"MM\0+", 4}};
    return std::ranges::any_of(Signatures,
                               [&](QByteArrayView signature) { return bytes.startsWith(signature); });
}

FileUnderTest fileOf(const QByteArray& bytes, const QString& name) {
    return {"TIFF", name, bytes.size()};
}

void selectPage(const TiffFile& tiff, const FileUnderTest& file, int page) {
    if (page < 1 || !TIFFSetDirectory(tiff, tdir_t(page - 1)))
        failDecoding(file, QStringLiteral("it has no page %1").arg(page));
}

TiffLayout checkedLayout(const TiffFile& tiff, const FileUnderTest& file) {
    requirePlausibleSize(file, tiff.field<std::uint32_t>(TIFFTAG_IMAGEWIDTH),
                         tiff.field<std::uint32_t>(TIFFTAG_IMAGELENGTH), PixelsPerByte);
    return readTiffLayout(tiff);
}

double dpiOf(const TiffFile& tiff) {
    const double perUnit = tiff.field<float>(TIFFTAG_XRESOLUTION);
    if (!std::isfinite(perUnit) || perUnit < 0)
        return 0;
    return tiff.field<std::uint16_t>(TIFFTAG_RESOLUTIONUNIT) == RESUNIT_CENTIMETER ? perUnit * 2.54 : perUnit;
}

PictureHeader tiffHeader(const QByteArray& bytes, const QString& name) {
    const FileUnderTest file = fileOf(bytes, name);
    const TiffFile tiff(bytes, file);
    const TiffLayout layout = checkedLayout(tiff, file);
    return {layout.width, layout.height, layout.bits * layout.samples, dpiOf(tiff)};
}

int tiffPageCount(const QByteArray& bytes, const QString& name) {
    const TiffFile tiff(bytes, fileOf(bytes, name));
    return std::max(1, int(TIFFNumberOfDirectories(tiff)));
}

Picture decodePixels(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file,
                     const QByteArray& iccProfile) {
    if (isPlainRgb(layout))
        return decodePlainRgb(tiff, layout, file);
    if (isKnownToTiffRgba(tiff, layout))
        return decodeTiffRgba(tiff, layout, file);
    return decodeTiffSamples(tiff, layout, file, iccProfile);
}

DecodedPicture decodeTiff(const QByteArray& bytes, const QString& name, int page) {
    const FileUnderTest file = fileOf(bytes, name);
    const TiffFile tiff(bytes, file);
    selectPage(tiff, file, page);
    const TiffLayout layout = checkedLayout(tiff, file);
    EmbeddedMetadata metadata = tiffPageMetadata(bytes, TIFFCurrentDirOffset(tiff));
    Picture picture = decodePixels(tiff, layout, file, metadata.iccProfile);
    return {std::move(picture), withRgbProfileOnly(std::move(metadata)), tiff.firstError()};
}

EmbeddedMetadata tiffMetadata(const QByteArray& bytes, const QString& name) {
    const TiffFile tiff(bytes, fileOf(bytes, name));
    return withRgbProfileOnly(tiffPageMetadata(bytes, TIFFCurrentDirOffset(tiff)));
}

} // namespace

Codec tiffCodec() {
    return {.name = "TIFF",
            .extensions = {QStringLiteral("tif"), QStringLiteral("tiff")},
            .sniff = sniffTiff,
            .header = tiffHeader,
            .pageCount = tiffPageCount,
            .decode = decodeTiff,
            .encode = encodeTiff,
            .metadata = tiffMetadata};
}

} // namespace tarsel
