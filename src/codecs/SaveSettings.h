// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"

namespace tarsel {

/// How a box's picture is encoded. `ColorFormat` for JPEG: 0 is 24 bit true colour, 2 is 8 bit grayscale.
struct SaveSettings {
    int ColorFormat = 0;
    int JpegQuality = 80;       ///< 1 to 100
    bool JpegEncoding = false;  ///< true: progressive
    bool GifCompression = true; ///< true: LZW
    int TiffCompression = 0;
    Color BackColor = 0xFFFFFF; ///< the see-through colour, when BackColorTransparent
    bool BackColorTransparent = false;
};

} // namespace tarsel
