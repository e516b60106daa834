// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/CodecChecks.h"
#include "codecs/PictureSource.h"
#include "pixels/Picture.h"

namespace tarsel {

/// What the headers of a BMP file say.
struct BmpLayout {
    std::uint32_t headerSize = 0;
    std::int64_t width = 0;
    std::int64_t height = 0; ///< below 0: rows run from the top
    int bits = 0;
    std::uint32_t compression = 0;
    std::int64_t pixelOffset = 0;
    double dpi = 0;
};

/// Error 0x8000FFFF for a size that makes no sense. A header that the file is too short for reads as zeros.
BmpLayout readBmpLayout(const PictureSource& source, const FileUnderTest& file);

struct BmpPicture {
    Picture picture;
    QString damage; ///< empty when every row was read
};

/// Windows and OS/2 bitmaps of 1 to 32 bits, with runs or masks.
BmpPicture readBmp(const PictureSource& source, const FileUnderTest& file);

} // namespace tarsel
