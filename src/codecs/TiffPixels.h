// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/TiffFile.h"
#include "pixels/Picture.h"

namespace tarsel {

/// What the selected page says about its pixels.
struct TiffLayout {
    int width = 0;
    int height = 0;
    int bits = 1; ///< a sample
    int samples = 1;
    int sampleFormat = SAMPLEFORMAT_UINT;
    int photometric = 0;
    int planar = PLANARCONFIG_CONTIG;
    int compression = COMPRESSION_NONE;
    bool tiled = false;
    int extraSamples = 0; ///< after the colours
    int extraSample = -1; ///< kind of the one that is alpha, else of the first one, or -1
    int alphaSample = -1; ///< which of the extra samples is alpha, or -1
};

TiffLayout readTiffLayout(const TiffFile& tiff);

/// 8 bits of red, green, blue (and alpha) in strips: rows straight into the picture.
bool isPlainRgb(const TiffLayout& layout);
Picture decodePlainRgb(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file);

/// Whatever libtiff turns into red, green and blue by itself.
bool isKnownToTiffRgba(const TiffFile& tiff, const TiffLayout& layout);
Picture decodeTiffRgba(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file);

/// The rest, sample by sample: fewer than 8 or more than 16 bits, floating point, CMYK, L*a*b*, alpha.
Picture decodeTiffSamples(const TiffFile& tiff, const TiffLayout& layout, const FileUnderTest& file,
                          const QByteArray& iccProfile);

} // namespace tarsel
