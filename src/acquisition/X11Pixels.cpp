// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/X11Pixels.h"

#include <algorithm>
#include <bit>

namespace tarsel {

namespace {

/// One colour of a pixel, spread to 0 to 255.
class Channel {
public:
    explicit Channel(std::uint32_t mask) :
        m_mask(mask), m_shift(mask ? std::countr_zero(mask) : 0), m_largest(mask >> m_shift) {}

    std::uint8_t of(std::uint32_t pixel) const {
        if (m_largest == 0)
            return 0;
        const std::uint64_t value = (pixel & m_mask) >> m_shift;
        return std::uint8_t((value * 255 + m_largest / 2) / m_largest);
    }

private:
    std::uint32_t m_mask;
    int m_shift;
    std::uint64_t m_largest;
};

std::uint32_t pixelAt(const std::uint8_t* bytes, int count, bool bigEndian) {
    std::uint32_t pixel = 0;
    for (int i = 0; i < count; ++i)
        pixel |= std::uint32_t(bytes[bigEndian ? count - 1 - i : i]) << (8 * i);
    return pixel;
}

bool isPlain(const X11PixelFormat& format) {
    return format.bitsPerPixel == 32 && !format.bigEndian && format.redMask == 0xFF0000 &&
           format.greenMask == 0xFF00 && format.blueMask == 0xFF;
}

void readPlainRow(const std::uint8_t* source, std::uint8_t* target, int width) {
    for (int x = 0; x < width; ++x, source += 4, target += 3) {
        target[0] = source[2];
        target[1] = source[1];
        target[2] = source[0];
    }
}

void readPaletteRow(const std::vector<std::uint32_t>& palette, const std::uint8_t* source,
                    std::uint8_t* target, int width) {
    for (int x = 0; x < width; ++x, target += 3) {
        const std::uint32_t color = source[x] < palette.size() ? palette[source[x]] : 0;
        target[0] = std::uint8_t(color >> 16);
        target[1] = std::uint8_t(color >> 8);
        target[2] = std::uint8_t(color);
    }
}

std::uint8_t over(std::uint32_t premultiplied, std::uint32_t alpha, std::uint8_t below) {
    return std::uint8_t(std::min(255u, premultiplied + (below * (255 - alpha) + 127) / 255));
}

} // namespace

std::size_t X11PixelFormat::rowBytes(int width) const {
    const std::size_t bits = std::size_t(width) * bitsPerPixel;
    return (bits + scanlinePad - 1) / scanlinePad * scanlinePad / 8;
}

void readPixels(const X11PixelFormat& format, const std::uint8_t* bytes, PixelView rows) {
    const Channel red(format.redMask);
    const Channel green(format.greenMask);
    const Channel blue(format.blueMask);
    const int pixelBytes = format.bitsPerPixel / 8;
    const std::size_t rowBytes = format.rowBytes(rows.width);
    for (int y = 0; y < rows.height; ++y, bytes += rowBytes) {
        std::uint8_t* target = rows.row(y);
        if (isPlain(format)) {
            readPlainRow(bytes, target, rows.width);
            continue;
        }
        if (!format.palette.empty()) {
            readPaletteRow(format.palette, bytes, target, rows.width);
            continue;
        }
        for (int x = 0; x < rows.width; ++x, target += 3) {
            const std::uint32_t pixel =
                pixelAt(bytes + std::ptrdiff_t(x) * pixelBytes, pixelBytes, format.bigEndian);
            target[0] = red.of(pixel);
            target[1] = green.of(pixel);
            target[2] = blue.of(pixel);
        }
    }
}

void drawPointer(const X11Pointer& pointer, PixelView picture) {
    const int top = std::max(0, -pointer.corner.y());
    const int left = std::max(0, -pointer.corner.x());
    const int bottom = std::min(pointer.height, picture.height - pointer.corner.y());
    const int right = std::min(pointer.width, picture.width - pointer.corner.x());
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) {
            const std::uint32_t argb = pointer.pixels[std::size_t(y) * pointer.width + x];
            std::uint8_t* below = picture.pixel(pointer.corner.x() + x, pointer.corner.y() + y);
            const std::uint32_t alpha = argb >> 24;
            below[0] = over(argb >> 16 & 0xFF, alpha, below[0]);
            below[1] = over(argb >> 8 & 0xFF, alpha, below[1]);
            below[2] = over(argb & 0xFF, alpha, below[2]);
        }
}

} // namespace tarsel
