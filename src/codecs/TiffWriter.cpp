// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffCodec.h"

#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/TiffFile.h"
#include "codecs/TiffMetadata.h"

#include <algorithm>

namespace tarsel {

namespace {

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

int rowsPerStrip(ConstPixelView view) {
    return int(std::clamp<std::int64_t>(StripBytes / view.stride, 1, view.height));
}

void describePixels(const TiffFile& tiff, ConstPixelView view, int compression) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, std::uint32_t(view.width));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, std::uint32_t(view.height));
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, 8);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, view.channels);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_RGB);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
    if (compression == COMPRESSION_LZW)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip(view));
    if (view.channels == 4) {
        const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    }
}

[[noreturn]] void failEncoding(const TiffFile& tiff) {
    fail(ErrorNumber::InvalidCall, QStringLiteral("TIFF encoder: ") + tiff.firstError());
}

/// Whole strips, because the library codes those in a buffer of its own; single rows it alters in place.
void writeStrips(const TiffFile& tiff, ConstPixelView view) {
    const int rows = rowsPerStrip(view);
    for (int y = 0; y < view.height; y += rows) {
        const auto size = tmsize_t(view.stride) * std::min(rows, view.height - y);
        auto* pixels = const_cast<std::uint8_t*>(view.row(y));
        if (TIFFWriteEncodedStrip(tiff, std::uint32_t(y / rows), pixels, size) != size)
            failEncoding(tiff);
    }
}

} // namespace

QByteArray encodeTiff(const Picture& picture, const SaveSettings& settings,
                      const EmbeddedMetadata& metadata) {
    const ConstPixelView view = picture.view();
    TiffFile tiff(isBigEndianExif(metadata.exif));
    if (!tiff.handle())
        failEncoding(tiff);
    describePixels(tiff, view, libraryCompression(settings.TiffCompression));
    writeStrips(tiff, view);
    if (!TIFFWriteDirectory(tiff))
        failEncoding(tiff);
    return withTiffMetadata(tiff.finish(), withRgbProfileOnly(metadata));
}

} // namespace tarsel
