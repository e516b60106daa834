// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Picture.h"

#include <QPoint>
#include <cstdint>
#include <vector>
#include <xcb/xcb.h>

namespace tarsel {

/// How the bytes of an image of the X server hold colours.
struct X11PixelFormat {
    int bitsPerPixel = 32; ///< 8, 16, 24 or 32
    int scanlinePad = 32;  ///< rows begin at multiples of so many bits
    bool bigEndian = false;
    std::uint32_t redMask = 0xFF0000;
    std::uint32_t greenMask = 0xFF00;
    std::uint32_t blueMask = 0xFF;
    std::vector<std::uint32_t> palette{}; ///< 0xRRGGBB of each pixel value; none with colours in the pixels

    std::size_t rowBytes(int width) const;
};

/// Turns rows of such an image into pixels of 3 bytes. `bytes` has `rows.height` rows of
/// rowBytes(rows.width).
void readPixels(const X11PixelFormat& format, const std::uint8_t* bytes, PixelView rows);

/// The pointer as the server draws it: pixels of 32 bits, alpha in the highest byte, colours multiplied by
/// it.
struct X11Pointer {
    std::vector<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
    QPoint corner; ///< top left, in the picture that it is drawn on
};

void drawPointer(const X11Pointer& pointer, PixelView picture);

} // namespace tarsel
