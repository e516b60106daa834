// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/Picture.h"

#include "base/TrappedError.h"
#include "pixels/Color.h"
#include "pixels/PixelBuffer.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <gtest/gtest.h>
#include <vector>

using namespace tarsel;
using namespace tarsel::test;

TEST(Picture, ASnapshotCostsNoPixelsAndAnUnsharedPictureIsEditedInPlace) {
    Picture picture(40, 30, 3);
    const auto* const pixels = picture.view().data;
    {
        const Picture snapshot = picture;
        EXPECT_EQ(snapshot.view().data, pixels);
        EXPECT_TRUE(picture.isShared());
    }
    EXPECT_FALSE(picture.isShared());
    EXPECT_EQ(picture.edit().data, pixels);
}

TEST(Picture, ComparesSizeDepthAndPixels) {
    EXPECT_TRUE(noisePicture(5, 6, 3) == noisePicture(5, 6, 3));
    EXPECT_FALSE(noisePicture(5, 6, 3) == noisePicture(6, 5, 3));
    EXPECT_FALSE(noisePicture(5, 6, 3) == noisePicture(5, 6, 4));
    EXPECT_FALSE(Picture() == noisePicture(5, 6, 3));
    EXPECT_TRUE(Picture() == Picture());
}

TEST(Picture, RefusesSizesThatCannotBe) {
    const auto errorOf = [](int width, int height, int channels) {
        return errorNumberOf([&] { const Picture picture(width, height, channels); });
    };
    EXPECT_EQ(errorOf(0, 5, 3), ErrorNumber::OutOfMemory);
    EXPECT_EQ(errorOf(5, -1, 3), ErrorNumber::OutOfMemory);
    EXPECT_EQ(errorOf(65536, 65536, 3), ErrorNumber::OutOfMemory);           // 2^32 pixels
    EXPECT_EQ(errorOf(2147483647, 2147483647, 4), ErrorNumber::OutOfMemory); // beyond 64 bits of bytes
    EXPECT_EQ(errorOf(5, 5, 2), ErrorNumber::InvalidCall);
}

TEST(Picture, ABatchUsesTheSameMemoryAgainAndThePoolKeepsNoMoreThanItsLimit) {
    const auto pixelsOfNext = [] { return Picture(1999, 1013, 3).view().data; };
    EXPECT_EQ(pixelsOfNext(), pixelsOfNext());
    std::vector<Picture> pictures;
    for (int i = 0; i < 12; ++i)
        pictures.emplace_back(4000, 3000, 3);
    pictures.clear();
    EXPECT_GT(PixelBuffer::pooledBytes(), 0U);
    EXPECT_LE(PixelBuffer::pooledBytes(), PixelBuffer::keptBytes);
}

TEST(Color, HasRedInTheLowByteOrNamesASystemColor) {
    setButtonColor({1, 2, 3});
    const struct {
        quint32 value;
        Rgb color;
    } cases[] = {{0x0000FF, {255, 0, 0}}, {0x332211, {0x11, 0x22, 0x33}}, {0x80000008, {0, 0, 0}},
                 {0x80000009, {0, 0, 0}}, {0x8000000E, {255, 255, 255}},  {0x8000000F, {1, 2, 3}},
                 {0x80000003, {0, 0, 0}}};
    for (const auto& c : cases)
        EXPECT_EQ(resolveColor(Color(c.value)), c.color) << std::hex << c.value;
    EXPECT_EQ(colorOf({0x11, 0x22, 0x33}), 0x332211);
}
