// SPDX-License-Identifier: GPL-3.0-or-later
// Rotation, crop, the ellipse and sizes, where results are exact.

#include "pixels/operations/AreaReduction.h"
#include "pixels/operations/Crop.h"
#include "pixels/operations/EllipseMask.h"
#include "pixels/operations/ResizeNearest.h"
#include "pixels/operations/Rotate.h"
#include "tests/support/TestPictures.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

constexpr Rgb blue{0, 0, 255};

Picture turned(const Picture& picture, double degrees, bool smooth = true) {
    return rotate(picture, degrees, smooth, blue);
}

Picture cut(const Picture& picture, int left, int top, int width, int height) {
    Picture result(width, height, picture.channels());
    crop(picture.view(), result.edit(), left, top, blue);
    return result;
}

double distanceOf(Rgb one, Rgb other) {
    return std::hypot(one.red - other.red, one.green - other.green, one.blue - other.blue);
}

} // namespace

TEST(Rotate, ByQuartersIsExact) {
    for (const auto& [width, height] : oddSizes())
        for (const int channels : {3, 4}) {
            const int w = width, h = height;
            SCOPED_TRACE(testing::Message() << w << " x " << h);
            const Picture source = noisePicture(w, h, channels);
            const Picture quarter = picked(source, h, w, [=](int x, int y) { return Place{y, h - 1 - x}; });
            const Picture half = picked(source, w, h, [=](int x, int y) {
                return Place{w - 1 - x, h - 1 - y};
            });
            const Picture back = picked(source, h, w, [=](int x, int y) { return Place{w - 1 - y, x}; });
            for (const double degrees : {90.0, 450.0})
                EXPECT_TRUE(turned(source, degrees) == quarter) << degrees;
            for (const double degrees : {-90.0, 270.0})
                EXPECT_TRUE(turned(source, degrees) == back) << degrees;
            EXPECT_TRUE(turned(source, 180) == half);
            for (const double degrees : {0.0, 360.0, -720.0})
                EXPECT_EQ(turned(source, degrees).view().data, source.view().data);
        }
}

TEST(Rotate, TakesTheNearestPixelAndGrowsTheCanvasToHoldAll) {
    const Picture source = pictureOf(90, 70, 3, [](int x, int y) {
        return Rgb{std::uint8_t(2 * x), std::uint8_t(3 * y), std::uint8_t(x + y)};
    });
    for (const double degrees : {1.0, 7.0, 45.0, 89.0, 100.0, 200.0, -160.0, 301.5}) {
        const Picture result = turned(source, degrees, false);
        const double angle = degrees * std::numbers::pi / 180;
        const double cosine = std::abs(std::cos(angle)), sine = std::abs(std::sin(angle));
        EXPECT_EQ(result.width(), std::ceil(90 * cosine + 70 * sine));
        EXPECT_EQ(result.height(), std::ceil(90 * sine + 70 * cosine));
        EXPECT_EQ(colorAt(result, 0, 0), blue);
        EXPECT_EQ(colorAt(result, result.width() - 1, result.height() - 1), blue);
        for (int y = 5; y < 65; y += 6)
            for (int x = 5; x < 85; x += 6) {
                const double fromX = x + 0.5 - 45;
                const double fromY = y + 0.5 - 35;
                const double toX = fromX * std::cos(angle) - fromY * std::sin(angle) + result.width() / 2.0;
                const double toY = fromX * std::sin(angle) + fromY * std::cos(angle) + result.height() / 2.0;
                EXPECT_LE(distanceOf(colorAt(result, int(toX), int(toY)), colorAt(source, x, y)), 6.0)
                    << degrees << " at " << x << ", " << y;
            }
    }
}

TEST(Crop, CutsInsideAndEnlargesOutsideAlsoFarFromThePicture) {
    for (const int channels : {3, 4}) {
        const Picture source = noisePicture(23, 19, channels);
        for (const auto& [left, top] :
             {Place{0, 0}, {5, 3}, {-4, -7}, {22, 18}, {-40, 2}, {30, 30}, {3, -60}})
            for (const auto& [width, height] : oddSizes()) {
                const auto from = [&, l = left, t = top](int x, int y) { return Place{l + x, t + y}; };
                EXPECT_TRUE(cut(source, left, top, width, height) ==
                            picked(source, width, height, from, blue))
                    << left << ", " << top << ": " << width << " x " << height;
            }
        for (const int far : {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
            EXPECT_TRUE(cut(source, far, far, 3, 3) == plainPicture(3, 3, channels, blue));
    }
}

TEST(EllipseMask, KeepsWhatLiesInsideAndFillsTheRest) {
    for (const auto& [width, height] : {PictureSize{100, 60}, {61, 101}, {12, 300}, {7, 7}}) {
        Picture picture = plainPicture(width, height, 3, {255, 0, 0});
        fillOutsideEllipse(picture.edit(), blue);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                // Corners of the pixel decide: all inside, all outside, or mixed.
                int inside = 0;
                for (const double dx : {0.0, 1.0})
                    for (const double dy : {0.0, 1.0})
                        inside += std::hypot((x + dx) / width * 2 - 1, (y + dy) / height * 2 - 1) <= 1;
                const Rgb color = colorAt(picture, x, y);
                if (inside == 4) {
                    ASSERT_EQ(color, (Rgb{255, 0, 0})) << x << ", " << y;
                }
                ASSERT_NEAR(color.red + color.blue, 255, 1);
            }
        EXPECT_EQ(colorAt(picture, 0, 0), blue);
        EXPECT_EQ(colorAt(picture, width - 1, height - 1), blue);
        EXPECT_NEAR(meanOf(picture, 0) / 255, std::numbers::pi / 4, 0.005 + 0.02 / std::min(width, height));
    }
    for (const auto& [width, height] : oddSizes()) {
        Picture picture = plainPicture(width, height, 4, blue);
        fillOutsideEllipse(picture.edit(), {0, 0, 0});
        EXPECT_EQ(meanOf(picture, 3), 255);
    }
}

TEST(AreaReduction, IsTheRoundedMeanOfWhatEachPixelCovers) {
    for (const int channels : {3, 4})
        for (const auto& [across, down] :
             {PictureSize{2, 2}, {1, 2}, {2, 1}, {3, 3}, {4, 2}, {5, 7}, {256, 16}})
            for (const auto& [width, height] : {PictureSize{1, 1}, {7, 3}, {33, 2}, {64, 5}}) {
                const Picture source = noisePicture(width * across, height * down, channels);
                Picture result(width, height, channels);
                areaReduction(source.view(), result.edit(), across, down);
                for (int y = 0; y < height; ++y)
                    for (int x = 0; x < width; ++x)
                        for (int c = 0; c < channels; ++c) {
                            int sum = 0;
                            for (int j = 0; j < down; ++j)
                                for (int i = 0; i < across; ++i)
                                    sum += source.view().pixel(x * across + i, y * down + j)[c];
                            const int area = across * down;
                            ASSERT_EQ(result.view().pixel(x, y)[c], (sum + area / 2) / area)
                                << across << 'x' << down << " at " << x << ", " << y;
                        }
            }
}

TEST(ResizeNearest, TakesThePixelUnderEachCentre) {
    for (const int channels : {3, 4})
        for (const auto& from : oddSizes())
            for (const auto& to : oddSizes()) {
                const Picture source = noisePicture(from.width, from.height, channels);
                const Picture expected = picked(source, to.width, to.height, [&](int x, int y) {
                    return Place{int((x + 0.5) * from.width / to.width),
                                 int((y + 0.5) * from.height / to.height)};
                });
                Picture result(to.width, to.height, channels);
                resizeNearest(source.view(), result.edit());
                EXPECT_TRUE(result == expected)
                    << from.width << " x " << from.height << " to " << to.width << " x " << to.height;
            }
}
