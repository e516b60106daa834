// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/TiffPixels.h"

#include "base/Stop.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>
#include <vector>

namespace tarsel {

namespace {

/// White, and opaque: what is shown where a damaged file has no pixels.
void clearPixels(PixelView target) {
    std::memset(target.data, 255, std::size_t(target.stride) * std::size_t(target.height));
}

bool isFax(int compression) {
    return compression >= COMPRESSION_CCITTRLE && compression <= COMPRESSION_CCITTFAX4;
}

std::uint8_t unmultiplied(unsigned value, unsigned alpha) {
    return std::uint8_t(std::min(255u, (value * 255 + alpha / 2) / alpha));
}

/// libtiff's word to our bytes; its colours are multiplied by alpha.
void storePixel(std::uint32_t word, std::uint8_t* pixel, int channels) {
    const unsigned red = TIFFGetR(word), green = TIFFGetG(word), blue = TIFFGetB(word),
                   alpha = TIFFGetA(word);
    if (channels == 3 || alpha == 255 || alpha == 0) {
        pixel[0] = std::uint8_t(red);
        pixel[1] = std::uint8_t(green);
        pixel[2] = std::uint8_t(blue);
    } else {
        pixel[0] = unmultiplied(red, alpha);
        pixel[1] = unmultiplied(green, alpha);
        pixel[2] = unmultiplied(blue, alpha);
    }
    if (channels == 4)
        pixel[3] = std::uint8_t(alpha);
}

void unmultiplyRow(std::uint8_t* pixel, int width) {
    for (int x = 0; x < width; ++x, pixel += 4)
        for (int c = 0; c < 3 && pixel[3] != 0; ++c)
            pixel[c] = unmultiplied(pixel[c], pixel[3]);
}

bool hasAlpha(const TiffLayout& layout) {
    return layout.alphaSample >= 0;
}

/// libtiff's converter for one page, and its clean-up.
class RgbaConverter {
public:
    RgbaConverter(const TiffFile& tiff, const FileUnderTest& file) {
        char reason[1024] = {};
        if (!TIFFRGBAImageBegin(&m_image, tiff, 0, reason))
            failDecoding(file, QString::fromUtf8(reason));
        m_image.orientation = ORIENTATION_TOPLEFT; // rows as they are stored
        m_image.req_orientation = ORIENTATION_TOPLEFT;
    }
    ~RgbaConverter() { TIFFRGBAImageEnd(&m_image); }
    RgbaConverter(const RgbaConverter&) = delete;
    RgbaConverter& operator=(const RgbaConverter&) = delete;

    bool convert(std::vector<std::uint32_t>& words, int firstRow, int rows) {
        m_image.row_offset = firstRow;
        std::ranges::fill(words, 0xFFFFFFFFu);
        return TIFFRGBAImageGet(&m_image, words.data(), m_image.width, std::uint32_t(rows));
    }

private:
    TIFFRGBAImage m_image = {};
};

/// Rows that are converted at once: complete strips or tiles.
int bandHeight(const TiffFile& tiff, const TiffLayout& layout) {
    constexpr std::int64_t fewRows = 64;
    std::int64_t unit = tiff.field<std::uint32_t>(layout.tiled ? TIFFTAG_TILELENGTH : TIFFTAG_ROWSPERSTRIP);
    unit = std::clamp<std::int64_t>(unit, 1, layout.height);
    return int(std::min<std::int64_t>((fewRows + unit - 1) / unit * unit, layout.height));
}

} // namespace

TiffLayout readTiffLayout(const TiffFile& tiff) {
    TiffLayout layout;
    layout.width = int(tiff.field<std::uint32_t>(TIFFTAG_IMAGEWIDTH));
    layout.height = int(tiff.field<std::uint32_t>(TIFFTAG_IMAGELENGTH));
    layout.bits = tiff.field<std::uint16_t>(TIFFTAG_BITSPERSAMPLE);
    layout.samples = tiff.field<std::uint16_t>(TIFFTAG_SAMPLESPERPIXEL);
    layout.sampleFormat = tiff.field<std::uint16_t>(TIFFTAG_SAMPLEFORMAT);
    layout.photometric = tiff.field<std::uint16_t>(TIFFTAG_PHOTOMETRIC);
    layout.planar = tiff.field<std::uint16_t>(TIFFTAG_PLANARCONFIG);
    layout.compression = tiff.field<std::uint16_t>(TIFFTAG_COMPRESSION);
    layout.tiled = TIFFIsTiled(tiff);
    std::uint16_t count = 0;
    std::uint16_t* kinds = nullptr;
    if (!TIFFGetField(tiff, TIFFTAG_EXTRASAMPLES, &count, &kinds) || count == 0)
        return layout;
    const auto isAlpha = [](int kind) {
        return kind == EXTRASAMPLE_ASSOCALPHA || kind == EXTRASAMPLE_UNASSALPHA;
    };
    const auto alpha = std::find_if(kinds, kinds + count, isAlpha);
    layout.extraSamples = count;
    layout.extraSample = alpha == kinds + count ? kinds[0] : *alpha;
    layout.alphaSample = alpha == kinds + count ? -1 : int(alpha - kinds);
    return layout;
}

bool isPlainRgb(const TiffLayout& layout) {
    return layout.bits == 8 && layout.photometric == PHOTOMETRIC_RGB && !layout.tiled &&
           layout.planar == PLANARCONFIG_CONTIG && layout.sampleFormat == SAMPLEFORMAT_UINT &&
           (layout.samples == 3 || (layout.samples == 4 && hasAlpha(layout)));
}

Picture decodePlainRgb(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file) {
    Picture picture(layout.width, layout.height, layout.samples);
    const PixelView target = picture.edit();
    if (TIFFScanlineSize(tiff) != target.stride)
        failDecoding(
            file, QCoreApplication::translate("TiffPixels", "its rows don't have the length of its width"));
    clearPixels(target);
    for (int y = 0; y < target.height; ++y) {
        raiseIfStopped();
        if (TIFFReadScanline(tiff, target.row(y), std::uint32_t(y)) != 1) {
            if (y == 0)
                failDecoding(file, tiff.firstError());
            break;
        }
        if (layout.extraSample == EXTRASAMPLE_ASSOCALPHA)
            unmultiplyRow(target.row(y), target.width);
    }
    return picture;
}

/// libtiff's converter takes the room for an uncompressed tile for the tile's size, and refuses the file.
static bool hasTilesOfOddSize(const TiffFile& tiff, const TiffLayout& layout) {
    constexpr tmsize_t roomUnit = 1024;
    return layout.tiled && layout.compression == COMPRESSION_NONE && TIFFTileSize(tiff) % roomUnit != 0;
}

/// libtiff takes every integer for an unsigned one.
static bool hasOtherThanUnsigned(const TiffLayout& layout) {
    const bool isGrayOrRgb = layout.photometric <= PHOTOMETRIC_RGB && layout.bits >= 8;
    return layout.sampleFormat > SAMPLEFORMAT_INT ? layout.sampleFormat != SAMPLEFORMAT_VOID
                                                  : layout.sampleFormat == SAMPLEFORMAT_INT && isGrayOrRgb;
}

/// libtiff takes the high byte of gray values of 16 bits, without rounding.
static bool cutsBitsOff(const TiffLayout& layout) {
    return layout.bits == 16 && layout.photometric <= PHOTOMETRIC_MINISBLACK;
}

bool isKnownToTiffRgba(const TiffFile& tiff, const TiffLayout& layout) {
    char reason[1024] = {};
    const bool ours = layout.photometric == PHOTOMETRIC_SEPARATED ||
                      layout.photometric == PHOTOMETRIC_CIELAB || layout.photometric == PHOTOMETRIC_ICCLAB ||
                      layout.bits > 16 || cutsBitsOff(layout) || hasOtherThanUnsigned(layout) ||
                      (hasAlpha(layout) && layout.photometric != PHOTOMETRIC_YCBCR) ||
                      (layout.bits < 8 && layout.samples > 1) ||
                      (hasTilesOfOddSize(tiff, layout) && layout.photometric != PHOTOMETRIC_YCBCR);
    return !ours && TIFFRGBAImageOK(tiff, reason);
}

Picture decodeTiffRgba(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file) {
    RgbaConverter converter(tiff, file);
    Picture picture(layout.width, layout.height, hasAlpha(layout) ? 4 : 3);
    const PixelView target = picture.edit();
    clearPixels(target);
    const int band = bandHeight(tiff, layout);
    std::vector<std::uint32_t> words(std::size_t(layout.width) * std::size_t(band));
    for (int first = 0; first < target.height; first += band) {
        raiseIfStopped();
        const int rows = std::min(band, target.height - first);
        const bool converted = converter.convert(words, first, rows);
        if (first == 0 && (!converted || (tiff.hasErrors() && !isFax(layout.compression))))
            failDecoding(file, tiff.hasErrors() ? tiff.firstError()
                                                : QCoreApplication::translate("TiffPixels", "no pixels"));
        for (int y = 0; y < rows; ++y)
            for (int x = 0; x < target.width; ++x)
                storePixel(words[std::size_t(y) * std::size_t(target.width) + std::size_t(x)],
                           target.pixel(x, first + y), target.channels);
    }
    return picture;
}

} // namespace tarsel
