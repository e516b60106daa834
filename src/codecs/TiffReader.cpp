// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffCodec.h"

#include "base/Stop.h"
#include "bytes/TiffStructure.h"
#include "codecs/ColorProfile.h"
#include "codecs/TiffMetadata.h"
#include "codecs/TiffPixels.h"

#include <QByteArrayView>
#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>
#include <vector>

namespace tarsel {

namespace {

constexpr std::uint64_t maxDirectoryEntries = 1000;

/// The most pixels that a byte of an honest file can stand for. In fax coding with references to the row
/// above an empty row takes one bit.
std::int64_t pixelsPerByte(int compression, std::int64_t width) {
    constexpr std::int64_t longestRuns = 22'000; // LZW: 4096 bytes of 8 pixels in 12 bits
    constexpr std::int64_t unknown = 1'000'000;
    switch (compression) {
    case COMPRESSION_CCITTFAX3:
    case COMPRESSION_CCITTFAX4:
        return std::max(longestRuns, 8 * width);
    case COMPRESSION_JBIG:
    case COMPRESSION_LZMA:
    case COMPRESSION_ZSTD:
    case COMPRESSION_WEBP:
    case COMPRESSION_LERC:
        return unknown;
    default:
        return longestRuns;
    }
}

bool sniffTiff(const PictureSource& source) {
    constexpr std::string_view signatures[] = {{"II*\0", 4}, {"MM\0*", 4}, {"II+\0", 4}, {"MM\0+", 4}};
    const QByteArray start = source.start();
    return std::ranges::any_of(signatures,
                               [&](QByteArrayView signature) { return start.startsWith(signature); });
}

FileUnderTest fileOf(const PictureSource& source, const QString& name) {
    return {"TIFF", name, source.size()};
}

using TiffPages = std::vector<TiffDirectoryPlace>;

TiffPages readPages(const PictureSource& source) {
    constexpr std::size_t maxPages = 65'535;
    std::optional<TiffWalker> walker = TiffWalker::open(source.byteSource());
    const auto proceed = [] {
        raiseIfStopped();
        return true;
    };
    return walker ? walker->chain(maxPages, proceed) : TiffPages();
}

/// The pages in the order of their chain. The chain is walked once for each source.
const TiffPages& pagesOf(const PictureSource& source) {
    return source.finding<TiffPages>([&source] { return readPages(source); });
}

/// A first directory that the header names and the file doesn't hold was cut off.
QString withoutPages(const PictureSource& source) {
    const std::optional<TiffWalker> walker = TiffWalker::open(source.byteSource());
    return walker && walker->firstDirectory() != 0
               ? QCoreApplication::translate("TiffReader", "file is truncated")
               : QCoreApplication::translate("TiffReader", "no pages");
}

/// The directory of a page, from 1. One that only a crafted file has is refused: libtiff's time grows with
/// the square of its entries.
std::uint64_t directoryOf(const PictureSource& source, const FileUnderTest& file, int page) {
    const TiffPages& pages = pagesOf(source);
    if (page < 1 || std::size_t(page) > pages.size())
        failDecoding(file, pages.empty()
                               ? withoutPages(source)
                               : QCoreApplication::translate("TiffReader", "it has no page %1").arg(page));
    const TiffDirectoryPlace& found = pages[std::size_t(page) - 1];
    if (found.entries > maxDirectoryEntries)
        failDecoding(
            file, QCoreApplication::translate("TiffReader", "a directory of %1 entries").arg(found.entries));
    return std::uint64_t(found.offset);
}

void selectDirectory(const TiffFile& tiff, const FileUnderTest& file, std::uint64_t offset) {
    if (!TIFFSetSubDirectory(tiff, offset))
        failDecoding(file, tiff.hasErrors() ? tiff.firstError()
                                            : QCoreApplication::translate("TiffReader", "not readable"));
}

TiffLayout checkedLayout(const TiffFile& tiff, const FileUnderTest& file) {
    const std::int64_t width = tiff.field<std::uint32_t>(TIFFTAG_IMAGEWIDTH);
    requirePlausibleSize(file, width, tiff.field<std::uint32_t>(TIFFTAG_IMAGELENGTH),
                         pixelsPerByte(tiff.field<std::uint16_t>(TIFFTAG_COMPRESSION), width));
    const TiffLayout layout = readTiffLayout(tiff);
    constexpr int maxBits = 64;
    if (layout.bits > maxBits)
        failDecoding(file, QCoreApplication::translate("TiffReader", "samples of %1 bits are not supported")
                               .arg(layout.bits));
    return layout;
}

double dpiOf(const TiffFile& tiff) {
    const double perUnit = tiff.field<float>(TIFFTAG_XRESOLUTION);
    if (!std::isfinite(perUnit) || perUnit < 0)
        return 0;
    return tiff.field<std::uint16_t>(TIFFTAG_RESOLUTIONUNIT) == RESUNIT_CENTIMETER ? perUnit * 2.54 : perUnit;
}

PictureHeader tiffHeader(const PictureSource& source, const QString& name) {
    const FileUnderTest file = fileOf(source, name);
    const TiffFile tiff(source, file);
    selectDirectory(tiff, file, directoryOf(source, file, 1));
    const TiffLayout layout = checkedLayout(tiff, file);
    return {layout.width, layout.height, layout.bits * layout.samples, dpiOf(tiff)};
}

int tiffPageCount(const PictureSource& source, const QString& name) {
    const TiffPages& pages = pagesOf(source);
    if (pages.empty())
        failDecoding(fileOf(source, name), withoutPages(source));
    return int(pages.size());
}

Picture decodePixels(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file,
                     const QByteArray& iccProfile) {
    if (isPlainRgb(layout))
        return decodePlainRgb(tiff, layout, file);
    if (isKnownToTiffRgba(tiff, layout))
        return decodeTiffRgba(tiff, layout, file);
    return decodeTiffSamples(tiff, layout, file, iccProfile);
}

DecodedPicture decodeTiff(const PictureSource& source, const QString& name, int page) {
    const FileUnderTest file = fileOf(source, name);
    const TiffFile tiff(source, file);
    const std::uint64_t directory = directoryOf(source, file, page);
    selectDirectory(tiff, file, directory);
    const TiffLayout layout = checkedLayout(tiff, file);
    EmbeddedMetadata metadata = tiffPageMetadata(source, directory);
    Picture picture = decodePixels(tiff, layout, file, metadata.iccProfile);
    applyGrayProfile(picture, metadata.iccProfile);
    return {std::move(picture), withRgbProfileOnly(std::move(metadata)), tiff.firstError()};
}

EmbeddedMetadata tiffMetadata(const PictureSource& source, const QString& name, int page) {
    return withRgbProfileOnly(tiffPageMetadata(source, directoryOf(source, fileOf(source, name), page)));
}

FilePieces tiffWithMetadata(const PictureSource& source, const QString& name, int page,
                            const MetadataChange& change) {
    const FileUnderTest file = fileOf(source, name);
    return tiffPageWithMetadata(source, file, directoryOf(source, file, page), change);
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
            .metadata = tiffMetadata,
            .withMetadata = tiffWithMetadata,
            .keepsTransparency = true};
}

} // namespace tarsel
