// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

/// What a file says about its picture before the pixels.
struct PictureHeader {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0; ///< all channels together, as stored
    double dpi = 0;       ///< horizontal; 0 when the file doesn't say
};

struct PixelSize {
    int width = 0;
    int height = 0;
    bool operator==(const PixelSize&) const = default;
};

} // namespace tarsel
