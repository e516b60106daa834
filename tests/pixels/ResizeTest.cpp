// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/AreaReduction.h"
#include "pixels/operations/LanczosKernel.h"
#include "pixels/operations/ResizeNearest.h"
#include "pixels/operations/ResizeSmooth.h"
#include "tests/support/TestPictures.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

Picture smoothTo(const Picture& picture, int width, int height) {
    Picture result(width, height, picture.channels());
    resizeSmooth(picture.view(), result.edit());
    return result;
}

Picture nearestTo(const Picture& picture, int width, int height) {
    Picture result(width, height, picture.channels());
    resizeNearest(picture.view(), result.edit());
    return result;
}

/// Soft waves, which every good filter keeps.
Picture waves(int width, int height, int channels) {
    return pictureOf(width, height, channels, [&](int x, int y) {
        const auto wave = [](double at) { return std::uint8_t(std::lround(127.5 + 90 * std::sin(at))); };
        return Rgb{wave(6.0 * x / width), wave(5.0 * y / height), wave(4.0 * x / width + 3.0 * y / height)};
    });
}

/// The filter in plain floating point, straight from its definition.
double exactValue(const Picture& picture, int width, int height, int x, int y) {
    const auto lanczos = [](double t) {
        const double a = std::numbers::pi * t;
        return t == 0 ? 1.0 : std::abs(t) >= 3 ? 0.0 : 3 * std::sin(a) * std::sin(a / 3) / (a * a);
    };
    const auto weight = [&](int source, int length, int place, int newLength) {
        const double step = double(length) / newLength;
        return lanczos((source + 0.5 - (place + 0.5) * step) / std::max(1.0, step));
    };
    constexpr int Beyond = 90; // more than the filter reaches; there the outermost pixels repeat
    double sum = 0;
    double total = 0;
    for (int j = -Beyond; j < picture.height() + Beyond; ++j)
        for (int i = -Beyond; i < picture.width() + Beyond; ++i) {
            const double w = weight(i, picture.width(), x, width) * weight(j, picture.height(), y, height);
            const int fromX = std::clamp(i, 0, picture.width() - 1);
            const int fromY = std::clamp(j, 0, picture.height() - 1);
            sum += w * colorAt(picture, fromX, fromY).green;
            total += w;
        }
    return std::clamp(sum / total, 0.0, 255.0);
}

} // namespace

TEST(ResizeSmooth, KeepsAPlainPicturePlainAtAnySize) {
    for (const int value : {0, 1, 128, 254, 255})
        for (const int channels : {3, 4}) {
            const Rgb color{std::uint8_t(value), 77, 255};
            const Picture plain = plainPicture(67, 41, channels, color);
            for (const auto& [width, height] : oddSizes())
                EXPECT_TRUE(smoothTo(plain, width, height) == plainPicture(width, height, channels, color))
                    << value << ": " << width << 'x' << height;
        }
}

TEST(ResizeSmooth, MatchesItsDefinitionUpAndDown) {
    const Picture source = noisePicture(29, 23, 3);
    for (const auto& [width, height] : oddSizes()) {
        if (width * 6 <= source.width() || height * 6 <= source.height())
            continue; // exact means come first, and stand in tests of their own
        const Picture result = smoothTo(source, width, height);
        for (int y = 0; y < height; y += std::max(1, height / 7))
            for (int x = 0; x < width; x += std::max(1, width / 7))
                ASSERT_NEAR(colorAt(result, x, y).green, exactValue(source, width, height, x, y), 1.0)
                    << width << 'x' << height << " at " << x << ", " << y;
    }
}

TEST(ResizeSmooth, ReducesStronglyWithoutShiftingThePicture) {
    // Lengths that no whole factor divides: what comes first must not cut off the rest.
    const Picture source = waves(997, 611, 3);
    for (const auto& [width, height] : {PictureSize{101, 67}, {50, 31}, {13, 7}, {160, 11}}) {
        const Picture result = smoothTo(source, width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const Rgb expected =
                    colorAt(source, int((x + 0.5) * 997 / width), int((y + 0.5) * 611 / height));
                const int tolerance =
                    width < 20 || height < 20 ? 9 : 3; // there the waves are nearly as short as pixels
                ASSERT_NEAR(colorAt(result, x, y).red, expected.red, tolerance) << x << ", " << y;
                ASSERT_NEAR(colorAt(result, x, y).green, expected.green, tolerance) << x << ", " << y;
            }
    }
}

TEST(ResizeSmooth, TreatsAllChannelsAlike) {
    const auto grayOf = [](int value) {
        return Rgb{std::uint8_t(value), std::uint8_t(value), std::uint8_t(value)};
    };
    const Picture gray = pictureOf(53, 37, 4, [&](int x, int y) { return grayOf(x * 31 + y * 17); });
    for (const auto& [width, height] : {PictureSize{20, 11}, {26, 18}, {100, 90}, {7, 5}}) {
        const Picture result = smoothTo(gray, width, height);
        EXPECT_TRUE(result == pictureOf(width, height, 4,
                                        [&](int x, int y) { return grayOf(colorAt(result, x, y).red); }))
            << width << " x " << height;
    }
}

TEST(ResizeSmooth, DoesNotLetTheColorOfTransparentPixelsShineThrough) {
    for (const auto& [width, height] : {PictureSize{20, 20}, {13, 17}, {90, 90}}) {
        const Picture result = smoothTo(redBesideHiddenGreen(40, 19), width, height);
        for (int x = 0; x < width; ++x)
            if (alphaAt(result, x, height / 2) > 20) {
                EXPECT_EQ(colorAt(result, x, height / 2), (Rgb{255, 0, 0})) << width << ": " << x;
            }
        EXPECT_EQ(alphaAt(result, 0, 0), 0);
        EXPECT_EQ(alphaAt(result, width - 1, 0), 255);
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

TEST(LanczosWeights, SumUpToOneAndStayInsideThePicture) {
    for (const int source : {1, 2, 3, 10, 101, 4000})
        for (const int target : {1, 2, 7, 99, 101, 1000}) {
            const AxisWeights axis = lanczosWeights(source, 1, target);
            for (int i = 0; i < target; ++i) {
                int sum = 0;
                for (int k = 0; k < axis.taps; ++k)
                    sum += axis.of(i)[k];
                ASSERT_EQ(sum, AxisWeights::One) << source << " to " << target;
                ASSERT_GE(axis.first[std::size_t(i)], 0);
                ASSERT_LE(axis.first[std::size_t(i)] + axis.taps, source);
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
                EXPECT_TRUE(nearestTo(source, to.width, to.height) == expected)
                    << from.width << " x " << from.height << " to " << to.width << " x " << to.height;
            }
}
