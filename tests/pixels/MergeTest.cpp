// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/Merge.h"

#include "tests/support/TestPictures.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

constexpr Rgb red{255, 0, 0};
constexpr Rgb gray{100, 100, 100};

Picture merged(const Picture& picture, const Picture& layer, const MergeOptions& options) {
    Picture result = picture;
    merge(result.edit(), layer.view(), options);
    return result;
}

MergeOptions at(int x, int y) {
    return {MergePlace::At, x, y, {}, 0};
}

} // namespace

TEST(Merge, OfAnOpaquePictureCopiesItsPixelsExactly) {
    const Picture noise = noisePicture(17, 13, 3, 2);
    for (const int channels : {3, 4}) {
        const Picture picture = noisePicture(61, 47, channels, 1);
        const Picture layer =
            pictureOf(17, 13, 7 - channels, [&](int x, int y) { return colorAt(noise, x, y); });
        for (const auto& [left, top] :
             {PictureSize{0, 0}, {44, 34}, {-5, -9}, {55, 40}, {20, -4}, {61, 0}, {-99, 0}}) {
            const Picture result = merged(picture, layer, at(left, top));
            for (int y = 0; y < 47; ++y)
                for (int x = 0; x < 61; ++x) {
                    const bool covered = x >= left && x < left + 17 && y >= top && y < top + 13;
                    ASSERT_EQ(colorAt(result, x, y),
                              covered ? colorAt(layer, x - left, y - top) : colorAt(picture, x, y));
                    ASSERT_EQ(alphaAt(result, x, y), covered ? 255 : alphaAt(picture, x, y));
                }
        }
    }
}

TEST(Merge, CentredIsInTheMiddleAndTiledRepeatsFromTheCornerAlsoWhenLarger) {
    const Picture picture = plainPicture(50, 40, 3, gray);
    for (const auto& [width, height] : {PictureSize{10, 20}, {70, 60}}) {
        const Picture layer = noisePicture(width, height, 3);
        const int left = (50 - width) / 2, top = (40 - height) / 2;
        const auto from = [=](int x, int y) { return Place{x - left, y - top}; };
        EXPECT_TRUE(merged(picture, layer, {}) == picked(layer, 50, 40, from, gray)) << width;
        const auto tile = [w = width, h = height](int x, int y) { return Place{x % w, y % h}; };
        EXPECT_TRUE(merged(picture, layer, {MergePlace::Tiled, 0, 0, {}, 0}) == picked(layer, 50, 40, tile))
            << width;
    }
}

TEST(Merge, WrappedCoversAllOfThePictureAndDoesNotMixTheTransparentColorIn) {
    const Rgb green{0, 255, 0};
    const Picture sameSize = noisePicture(57, 23, 3);
    const Picture below = plainPicture(57, 23, 3, gray);
    EXPECT_TRUE(merged(below, sameSize, {MergePlace::Wrapped, 9, 9, {}, 0}) == sameSize);
    const Picture layer = pictureOf(10, 10, 3, [=](int x, int) { return x < 5 ? green : red; });
    const Picture opaque = merged(below, layer, {MergePlace::Wrapped, 9, 9, {}, 0});
    const Picture keyed = merged(below, layer, {MergePlace::Wrapped, 0, 0, green, 0});
    for (int y = 0; y < 23; ++y) {
        EXPECT_EQ(colorAt(opaque, 0, y), green);
        EXPECT_EQ(colorAt(keyed, 0, y), gray);
        for (const Picture& result : {opaque, keyed})
            EXPECT_EQ(colorAt(result, 56, y), red);
        for (int x = 0; x < 57; ++x)
            EXPECT_LE(colorAt(keyed, x, y).green, gray.green) << x;
    }
}

TEST(Merge, LeavesOutThePixelsOfTheTransparentColorAlone) {
    const Rgb key{10, 20, 30};
    const Picture layer = pictureOf(9, 1, 3, [&](int x, int) {
        return x % 3 == 0   ? key
               : x % 3 == 1 ? Rgb{10, 20, 31}
                            : red; // the second is near, but not the colour
    });
    for (const int channels : {3, 4}) {
        const Picture result =
            merged(plainPicture(9, 1, channels, gray), layer, {MergePlace::At, 0, 0, key, 0});
        for (int x = 0; x < 9; ++x)
            EXPECT_EQ(colorAt(result, x, 0), x % 3 == 0 ? gray : colorAt(layer, x, 0));
    }
}

TEST(Merge, OfTransparencyAHundredChangesNothingAndBeyondCountsAsTheLimit) {
    const Picture picture = noisePicture(20, 20, 3);
    const Picture layer = noisePicture(20, 20, 4, 2);
    for (const double transparency : {100.0, 250.0})
        EXPECT_TRUE(merged(picture, layer, {MergePlace::At, 0, 0, {}, transparency}) == picture);
    EXPECT_TRUE(merged(picture, layer, {MergePlace::At, 0, 0, {}, -5}) == merged(picture, layer, at(0, 0)));
}
