// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffCodec.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"
#include "codecs/Resolution.h"
#include "codecs/TiffFile.h"
#include "codecs/TiffMetadata.h"
#include "pixels/Flatten.h"
#include "pixels/PaletteBuilder.h"

#include <QCoreApplication>
#include <algorithm>
#include <type_traits>
#include <vector>

namespace tarsel {

namespace {

constexpr int faxCompression = 2;      // of TiffCompression
constexpr int stripBytes = 256 * 1024; // small enough for readers that hold one strip

[[noreturn]] void failEncoding(const TiffFile& tiff) {
    fail(ErrorNumber::InvalidCall,
         QCoreApplication::translate("TiffWriter", "TIFF encoder: %1").arg(tiff.firstError()));
}

/// What the page is made of: rows of bytes, and how a reader has to take them.
struct TiffPageLayout {
    int width = 0;
    int height = 0;
    int bits = 8;
    int samples = 1;
    std::uint16_t photometric = PHOTOMETRIC_RGB;
    int compression = COMPRESSION_NONE;

    std::int64_t rowBytes() const { return packedSize(width * samples, bits); }
    /// A fax page is one strip, because readers expect so.
    int rowsPerStrip() const {
        if (compression == COMPRESSION_CCITTFAX4)
            return height;
        return int(std::clamp<std::int64_t>(stripBytes / rowBytes(), 1, height));
    }
};

int libraryCompression(int tiffCompression, bool isBlackAndWhite) {
    switch (tiffCompression) {
    case 0:
        return COMPRESSION_NONE;
    case 1:
        return COMPRESSION_PACKBITS;
    default:
        return isBlackAndWhite ? COMPRESSION_CCITTFAX4 : COMPRESSION_LZW;
    }
}

TiffPageLayout layoutOf(const Picture& picture, const SaveSettings& settings) {
    return {.width = picture.width(),
            .height = picture.height(),
            .bits = 8,
            .samples = picture.channels(),
            .photometric = PHOTOMETRIC_RGB,
            .compression = libraryCompression(settings.TiffCompression, false)};
}

/// One bit a pixel is stored as fax machines do, with 1 for black.
TiffPageLayout layoutOf(const IndexedPicture& picture, const SaveSettings& settings) {
    const bool isBlackAndWhite = picture.isGray && picture.bits == 1;
    return {.width = picture.width(),
            .height = picture.height(),
            .bits = picture.bits,
            .samples = 1,
            .photometric = std::uint16_t(isBlackAndWhite  ? PHOTOMETRIC_MINISWHITE
                                         : picture.isGray ? PHOTOMETRIC_MINISBLACK
                                                          : PHOTOMETRIC_PALETTE),
            .compression = libraryCompression(settings.TiffCompression, isBlackAndWhite)};
}

void describe(const TiffFile& tiff, const TiffPageLayout& layout) {
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, std::uint32_t(layout.width));
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, std::uint32_t(layout.height));
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, layout.bits);
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, layout.samples);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, layout.photometric);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, layout.compression);
    if (layout.compression == COMPRESSION_LZW && layout.bits == 8)
        TIFFSetField(tiff, TIFFTAG_PREDICTOR, PREDICTOR_HORIZONTAL);
    TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, std::uint32_t(layout.rowsPerStrip()));
    if (layout.samples == 4) {
        const std::uint16_t alpha = EXTRASAMPLE_UNASSALPHA;
        TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &alpha);
    }
}

/// 16 bits a channel.
void describePalette(const TiffFile& tiff, const IndexedPicture& picture) {
    std::vector<std::uint16_t> channels[3];
    for (const Rgb color : picture.palette) {
        channels[0].push_back(std::uint16_t(color.red * 257));
        channels[1].push_back(std::uint16_t(color.green * 257));
        channels[2].push_back(std::uint16_t(color.blue * 257));
    }
    for (auto& channel : channels)
        channel.resize(std::size_t(1) << picture.bits);
    TIFFSetField(tiff, TIFFTAG_COLORMAP, channels[0].data(), channels[1].data(), channels[2].data());
}

/// Each page has to have one: 72 to the inch stand for one that nobody knows.
void describeResolution(const TiffFile& tiff, const EmbeddedMetadata& metadata) {
    Resolution resolution = resolutionOf(metadata);
    if (resolution.horizontal == 0)
        resolution = {72, 72};
    TIFFSetField(tiff, TIFFTAG_XRESOLUTION, resolution.horizontal);
    TIFFSetField(tiff, TIFFTAG_YRESOLUTION, resolution.vertical);
    TIFFSetField(tiff, TIFFTAG_RESOLUTIONUNIT, RESUNIT_INCH);
}

void writeStrip(const TiffFile& tiff, int strip, const std::uint8_t* bytes, tmsize_t size) {
    raiseIfStopped();
    if (TIFFWriteEncodedStrip(tiff, std::uint32_t(strip), const_cast<std::uint8_t*>(bytes), size) != size)
        failEncoding(tiff);
}

/// Full strips, because the library codes those in a buffer of its own; single rows it alters in place.
void writePixels(const TiffFile& tiff, const Picture& picture, const TiffPageLayout& layout) {
    const int rows = layout.rowsPerStrip();
    for (int y = 0; y < layout.height; y += rows)
        writeStrip(tiff, y / rows, picture.view().row(y),
                   layout.rowBytes() * std::min(rows, layout.height - y));
}

void writePixels(const TiffFile& tiff, const IndexedPicture& picture, const TiffPageLayout& layout) {
    const int rows = layout.rowsPerStrip();
    std::vector<std::uint8_t> strip(std::size_t(layout.rowBytes() * rows));
    for (int y = 0; y < layout.height; y += rows) {
        const int count = std::min(rows, layout.height - y);
        for (int i = 0; i < count; ++i)
            packIndexes(picture.row(y + i), layout.width, layout.bits, strip.data() + layout.rowBytes() * i);
        if (layout.photometric == PHOTOMETRIC_MINISWHITE)
            for (std::uint8_t& byte : strip)
                byte = std::uint8_t(~byte);
        writeStrip(tiff, y / rows, strip.data(), layout.rowBytes() * count);
    }
}

/// Black and white only, so that fax compression loses nothing.
bool isBlackAndWhite(const Picture& picture) {
    constexpr Rgb black{0, 0, 0};
    const auto colors = picture.hasAlpha() ? std::nullopt : distinctColors(picture.view(), 2);
    return colors &&
           std::ranges::all_of(*colors, [&](Rgb color) { return color == black || color == white; });
}

EncodablePicture colorsFor(const Picture& picture, SaveSettings settings) {
    if (settings.TiffCompression == faxCompression && isBlackAndWhite(picture))
        settings.ColorFormat = int(ColorFormat::BlackAndWhite);
    return encoderColors(picture, settings, TransparencyOf::Nothing);
}

EmbeddedMetadata fittingMetadata(EmbeddedMetadata metadata, const TiffPageLayout& layout) {
    metadata = withRgbProfileOnly(std::move(metadata));
    if (layout.photometric == PHOTOMETRIC_MINISWHITE) // also of a colour picture with fax compression
        metadata.iccProfile.clear();                  // it would describe channels that the file doesn't have
    return metadata;
}

template <class Pixels>
QByteArray encodePixels(const Pixels& pixels, const SaveSettings& settings,
                        const EmbeddedMetadata& metadata) {
    TiffFile tiff(isBigEndianExif(metadata.exif));
    if (!tiff.handle())
        failEncoding(tiff);
    const TiffPageLayout layout = layoutOf(pixels, settings);
    describe(tiff, layout);
    if constexpr (std::is_same_v<Pixels, IndexedPicture>)
        if (layout.photometric == PHOTOMETRIC_PALETTE)
            describePalette(tiff, pixels);
    describeResolution(tiff, metadata);
    writePixels(tiff, pixels, layout);
    if (!TIFFWriteDirectory(tiff))
        failEncoding(tiff);
    return withTiffMetadata(tiff.finish(), fittingMetadata(metadata, layout));
}

} // namespace

QByteArray encodeTiff(const Picture& picture, const SaveSettings& settings,
                      const EmbeddedMetadata& metadata) {
    if (colorFormatOf(settings) == ColorFormat::TrueColor && picture.hasAlpha())
        return encodePixels(picture, settings, metadata);
    const EncodablePicture colors = colorsFor(picture, settings);
    return std::visit([&](const auto& pixels) { return encodePixels(pixels, settings, metadata); }, colors);
}

} // namespace tarsel
