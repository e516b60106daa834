// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/CodecChecks.h"
#include "codecs/PictureSource.h"
#include "pixels/Picture.h"

namespace tarsel {

/// The sections of a PSD file. Each starts with its size.
struct PsdLayout {
    int channels = 0;
    int width = 0;
    int height = 0;
    int bits = 0;         ///< of a sample
    int mode = 0;         ///< of the colours
    bool isLarge = false; ///< PSB: sizes of 64 bits for layers, counts of 32 bits for rows
    std::int64_t resources = 0;
    std::int64_t layers = 0;
    std::int64_t pixels = 0;
};

/// Error 0x8000FFFF for a size that makes no sense.
PsdLayout readPsdLayout(const PictureSource& source, const FileUnderTest& file);

bool isInksOrLab(const PsdLayout& layout);

/// Negative where the first channel after the colours is transparency.
int psdLayerCount(const PictureSource& source, const PsdLayout& layout);

struct PsdPicture {
    Picture picture;
    QString damage; ///< empty when every row was read
};

/// The merged picture: bitmap, gray, duotone, indexed, RGB, CMYK, L*a*b*, multichannel; 1 to 32 bits a
/// sample, plain or packed. It is transparent only when the file says that a channel is its transparency.
PsdPicture readPsd(const PictureSource& source, const FileUnderTest& file, const QByteArray& iccProfile);

} // namespace tarsel
