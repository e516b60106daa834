// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"

namespace tarsel {

/// How a box's picture is encoded. Each format uses what it has.
struct SaveSettings {
    /// A number of pixels/ColorReduction.h. JPEG has true colour and 256 grays: the gray entries are the
    /// latter. GIF writes 256 colours for true colour. WBMP has black and white: by threshold for that entry,
    /// else by error diffusion.
    int ColorFormat = 0;
    int JpegQuality = 80;      ///< 1 to 100; also of JPEG data in a PDF file
    bool JpegEncoding = false; ///< true: progressive
    /// The standard tables of JPEG times thousandths of this, with the shortest codes: steps between two
    /// qualities, for a file that must use up a size. 0: JpegQuality counts.
    int JpegTableScale = 0;
    bool GifCompression = true; ///< true: LZW
    /// 0 none, 1 PackBits, 2 CCITT Group 4. The last holds black and white only: a picture with any other
    /// colour is written with LZW instead.
    int TiffCompression = 0;
    Color BackColor = 0xFFFFFF; ///< the see-through colour of GIF and PNG, when BackColorTransparent
    bool BackColorTransparent = false;

    bool operator==(const SaveSettings&) const = default;
};

} // namespace tarsel
