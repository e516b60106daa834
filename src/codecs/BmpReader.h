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
    std::int64_t dataSize = 0; ///< of the rows; 0 when the header doesn't say
    double dpi = 0;
};

/// Error 0x8000FFFF for a size that makes no sense. A header that the file is too short for reads as zeros.
BmpLayout readBmpLayout(const PictureSource& source, const FileUnderTest& file);

/// Whether the compression may be that of a complete JPEG or PNG file in place of the rows, whose limits
/// count then. In files of OS/2 the first number stands for runs.
inline bool canHoldFile(const BmpLayout& layout) {
    constexpr std::uint32_t jpegOrRuns = 4, png = 5;
    return layout.compression == jpegOrRuns || layout.compression == png;
}

struct BmpPicture {
    Picture picture;
    QString damage; ///< empty when every row was read
};

/// Windows and OS/2 bitmaps of 1 to 32 bits, with runs or masks.
BmpPicture readBmp(const PictureSource& source, const FileUnderTest& file);

} // namespace tarsel
