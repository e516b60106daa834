// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/X11Pixels.h"

#include <array>
#include <gtest/gtest.h>
#include <vector>

using namespace tarsel;

namespace {

using Rgb = std::array<int, 3>;

Rgb at(const Picture& picture, int x, int y) {
    const std::uint8_t* pixel = picture.view().pixel(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

} // namespace

TEST(X11Pixels, ReadsTheFormsThatServersHave) {
    // Two rows of one pixel, so that the padding of a row counts.
    const struct {
        X11PixelFormat format;
        std::vector<std::uint8_t> bytes;
        Rgb first, second;
    } cases[] = {
        {{}, {0x33, 0x22, 0x11, 0xEE, 0x66, 0x55, 0x44, 0}, {0x11, 0x22, 0x33}, {0x44, 0x55, 0x66}},
        {{.bigEndian = true},
         {0xEE, 0x11, 0x22, 0x33, 0, 0x44, 0x55, 0x66},
         {0x11, 0x22, 0x33},
         {0x44, 0x55, 0x66}},
        {{.redMask = 0xFF, .blueMask = 0xFF0000}, // a server whose low byte is red
         {0x11, 0x22, 0x33, 0, 0x44, 0x55, 0x66, 0},
         {0x11, 0x22, 0x33},
         {0x44, 0x55, 0x66}},
        {{.bitsPerPixel = 24},
         {0x33, 0x22, 0x11, 0, 0x66, 0x55, 0x44, 0},
         {0x11, 0x22, 0x33},
         {0x44, 0x55, 0x66}},
        {{.bitsPerPixel = 16, .redMask = 0xF800, .greenMask = 0x07E0, .blueMask = 0x001F},
         {0x00, 0xF8, 0, 0, 0xE0 | 0x10, 0x07, 0, 0}, // red; all of green and half of blue
         {255, 0, 0},
         {0, 255, 132}},
        {{.bitsPerPixel = 8, .palette = {0x112233, 0x445566}},
         {1, 0, 0, 0, 2, 0, 0, 0},
         {0x44, 0x55, 0x66},
         {0, 0, 0}},                                                       // no such colour
        {{.redMask = 0x3FF00000, .greenMask = 0xFFC00, .blueMask = 0x3FF}, // 10 bits a colour
         {0xFF, 0x03, 0x00, 0x20, 0, 0, 0, 0},
         {128, 0, 255},
         {0, 0, 0}},
    };
    for (const auto& each : cases) {
        ASSERT_EQ(each.format.rowBytes(1), 4U);
        Picture picture(1, 2, 3);
        readPixels(each.format, each.bytes.data(), picture.edit());
        EXPECT_EQ(at(picture, 0, 0), each.first) << each.format.bitsPerPixel;
        EXPECT_EQ(at(picture, 0, 1), each.second) << each.format.bitsPerPixel;
    }
}

TEST(X11Pixels, DrawsThePointerOverThePictureAndOnlyWithinIt) {
    X11Pointer pointer;
    pointer.width = pointer.height = 2;
    pointer.pixels = {0xFF0000FF, 0x80800000, 0x00000000, 0xFF00FF00}; // blue, half red, nothing, green
    const auto drawnAt = [&](QPoint corner) {
        Picture picture(3, 3, 3);
        const PixelView pixels = picture.edit();
        std::fill_n(pixels.data, 27, std::uint8_t(200));
        pointer.corner = corner;
        drawPointer(pointer, pixels);
        return picture;
    };
    const Picture inside = drawnAt({1, 1});
    EXPECT_EQ(at(inside, 1, 1), (Rgb{0, 0, 255}));
    EXPECT_EQ(at(inside, 2, 1), (Rgb{228, 100, 100}));
    EXPECT_EQ(at(inside, 1, 2), (Rgb{200, 200, 200}));
    EXPECT_EQ(at(inside, 2, 2), (Rgb{0, 255, 0}));
    EXPECT_EQ(at(drawnAt({-1, -1}), 0, 0), (Rgb{0, 255, 0}));
    EXPECT_EQ(at(drawnAt({2, 2}), 2, 2), (Rgb{0, 0, 255}));
}
