// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffCodec.h"

#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/TiffFile.h"
#include "codecs/TiffMetadata.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

constexpr int FaxCompression = 2;      // of TiffCompression
constexpr int StripBytes = 256 * 1024; // small enough for readers that hold one strip

int libraryCompression(int tiffCompression) {
    switch (tiffCompression) {
    case 0:
        return COMPRESSION_NONE;
    case 1:
        return COMPRESSION_PACKBITS;
    default:
        return COMPRESSION_LZW;
    }
}

int rowsPerStrip(std::int64_t rowBytes, int height) {
    return int(std::clamp<std::int64_t>(StripBytes / rowBytes, 1, height));
}

void describeSize(const TiffFile& tiff, ConstPixelView view) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, std::uint32_t(view.width));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, std::uint32_t(view.height));
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
}

void describeColors(const TiffFile& tiff, ConstPixelView view, int compression) {
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, view.channels);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
    if (compression == COMPRESSION_LZW)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip(view.stride, view.height));
    if (view.channels == 4) {
        const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    }
}

void describeFax(const TiffFile& tiff, ConstPixelView view) {
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISWHITE);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_CCITTFAX4);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, std::uint32_t(view.height));
}

[[noreturn]] void failEncoding(const TiffFile& tiff) {
    fail(ErrorNumber::InvalidCall,
         QCoreApplication::translate("TiffWriter", "TIFF encoder: %1").arg(tiff.firstError()));
}

/// Full strips, because the library codes those in a buffer of its own; single rows it alters in place.
void writeStrips(const TiffFile& tiff, ConstPixelView view) {
    const int rows = rowsPerStrip(view.stride, view.height);
    for (int y = 0; y < view.height; y += rows) {
        const auto size = tmsize_t(view.stride) * std::min(rows, view.height - y);
        auto* pixels = const_cast<std::uint8_t*>(view.row(y));
        if (TIFFWriteEncodedStrip(tiff, std::uint32_t(y / rows), pixels, size) != size)
            failEncoding(tiff);
    }
}

bool isBlackAndWhite(ConstPixelView view) {
    constexpr std::uint8_t black[3] = {0, 0, 0};
    constexpr std::uint8_t white[3] = {255, 255, 255};
    if (view.channels != 3)
        return false;
    for (int y = 0; y < view.height; ++y)
        for (const std::uint8_t *pixel = view.row(y), *end = pixel + view.width * 3; pixel < end; pixel += 3)
            if (std::memcmp(pixel, pixel[0] ? white : black, 3) != 0)
                return false;
    return true;
}

/// One bit a pixel, 1 for black, from the high bit down.
void packRow(const std::uint8_t* pixel, int width, std::vector<std::uint8_t>& packed) {
    std::ranges::fill(packed, std::uint8_t(0));
    for (int x = 0; x < width; ++x, pixel += 3)
        if (pixel[0] == 0)
            packed[std::size_t(x) / 8] |= std::uint8_t(0x80 >> x % 8);
}

void writeFaxRows(const TiffFile& tiff, ConstPixelView view) {
    std::vector<std::uint8_t> packed((std::size_t(view.width) + 7) / 8);
    for (int y = 0; y < view.height; ++y) {
        packRow(view.row(y), view.width, packed);
        if (TIFFWriteScanline(tiff, packed.data(), std::uint32_t(y)) != 1)
            failEncoding(tiff);
    }
}

EmbeddedMetadata fittingMetadata(EmbeddedMetadata metadata, bool isFax) {
    metadata = withRgbProfileOnly(std::move(metadata));
    if (isFax)
        metadata.iccProfile.clear(); // it would describe channels that the file doesn't have
    return metadata;
}

} // namespace

QByteArray encodeTiff(const Picture& picture, const SaveSettings& settings,
                      const EmbeddedMetadata& metadata) {
    const ConstPixelView view = picture.view();
    TiffFile tiff(isBigEndianExif(metadata.exif));
    if (!tiff.handle())
        failEncoding(tiff);
    const bool isFax = settings.TiffCompression == FaxCompression && isBlackAndWhite(view);
    describeSize(tiff, view);
    if (isFax) {
        describeFax(tiff, view);
        writeFaxRows(tiff, view);
    } else {
        describeColors(tiff, view, libraryCompression(settings.TiffCompression));
        writeStrips(tiff, view);
    }
    if (!TIFFWriteDirectory(tiff))
        failEncoding(tiff);
    return withTiffMetadata(tiff.finish(), fittingMetadata(metadata, isFax));
}

} // namespace tarsel
