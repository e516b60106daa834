// SPDX-License-Identifier: GPL-3.0-or-later
// Operations that change pixels one by one or by their neighbours, and keep the size.

#include "pixels/operations/Brightness.h"
#include "pixels/operations/Contrast.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/GaussianBlur.h"
#include "pixels/operations/Negative.h"
#include "pixels/operations/Sharpen.h"
#include "tests/support/TestPictures.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <utility>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

using Operation = std::function<void(ConstPixelView, PixelView)>;

Picture changed(const Picture& picture, const Operation& operation) {
    Picture result(picture.width(), picture.height(), picture.channels());
    operation(picture.view(), result.edit());
    return result;
}

/// All operations that can work in place, by name.
const std::vector<std::pair<const char*, Operation>>& sizeKeepingOperations() {
    static const std::vector<std::pair<const char*, Operation>> operations = {
        {"brightness", [](auto s, auto t) { brightness(s, t, 70, {}); }},
        {"contrast", [](auto s, auto t) { contrast(s, t, 70, {}); }},
        {"negative", negative},
        {"sharpen", [](auto s, auto t) { sharpen(s, t, 4); }},
        {"blur", [](auto s, auto t) { gaussianBlur(s, t, 3); }},
        {"flip horizontally", flipHorizontal},
        {"flip vertically", flipVertical},
    };
    return operations;
}

/// All 256 values of a byte side by side.
Picture allValues() {
    return pictureOf(256, 1, 3, [](int x, int) {
        const auto value = std::uint8_t(x);
        return Rgb{value, value, value};
    });
}

std::vector<std::uint8_t> curveOf(const Operation& operation) {
    const Picture result = changed(allValues(), operation);
    std::vector<std::uint8_t> curve;
    for (int value = 0; value < 256; ++value)
        curve.push_back(colorAt(result, value, 0).red);
    return curve;
}

std::vector<std::uint8_t> contrastCurve(int level) {
    return curveOf([level](ConstPixelView s, PixelView t) { contrast(s, t, level, {}); });
}

std::vector<std::uint8_t> brightnessCurve(int level) {
    return curveOf([level](ConstPixelView s, PixelView t) { brightness(s, t, level, {}); });
}

} // namespace

TEST(SizeKeepingOperations, GiveTheSameInPlaceAndIntoAnotherPicture) {
    for (const auto& [name, operation] : sizeKeepingOperations())
        for (const auto& size : oddSizes())
            for (const int channels : {3, 4}) {
                const Picture source = noisePicture(size.width, size.height, channels);
                Picture inPlace = source;
                const PixelView view = inPlace.edit();
                operation(view, view);
                EXPECT_TRUE(inPlace == changed(source, operation))
                    << name << size.width << 'x' << size.height;
            }
}

TEST(SizeKeepingOperations, WorkOnAPartOfAPictureAndLeaveTheRestAlone) {
    const auto inside = [](int x, int y) { return Place{x + 10, y + 8}; };
    for (const auto& [name, operation] : sizeKeepingOperations()) {
        const Picture before = noisePicture(61, 43, 3);
        const Picture part = changed(picked(before, 37, 29, inside), operation);
        const Picture expected = pictureOf(61, 43, 3, [&](int x, int y) {
            const bool isInside = x >= 10 && x < 47 && y >= 8 && y < 37;
            return isInside ? colorAt(part, x - 10, y - 8) : colorAt(before, x, y);
        });
        Picture whole = before;
        const PixelView view = whole.edit();
        const PixelView target{view.pixel(10, 8), 37, 29, 3, view.stride};
        operation(target, target);
        EXPECT_TRUE(whole == expected) << name;
    }
}

TEST(Brightness, AddsAndEndsAtBlackAndWhite) {
    EXPECT_EQ(brightnessCurve(50)[77], 77);
    EXPECT_EQ(brightnessCurve(60)[100], 151);
    EXPECT_EQ(brightnessCurve(40)[100], 49);
    EXPECT_EQ(brightnessCurve(60)[230], 255);
    EXPECT_EQ(brightnessCurve(40)[20], 0);
    EXPECT_EQ(brightnessCurve(0)[255], 0);
    EXPECT_EQ(brightnessCurve(100)[0], 255);
    EXPECT_EQ(brightnessCurve(-7), brightnessCurve(0));
    EXPECT_EQ(brightnessCurve(1000), brightnessCurve(100));
}

TEST(Contrast, FollowsItsFormulaAtEveryLevel) {
    for (int level = 0; level <= 100; ++level) {
        const double factor = level <= 50 ? level / 50.0 : level < 100 ? 50.0 / (100 - level) : 1e9;
        const auto curve = contrastCurve(level);
        for (int value = 0; value < 256; ++value) {
            const double exact = std::clamp(127.5 + (value - 127.5) * factor, 0.0, 255.0);
            ASSERT_NEAR(curve[std::size_t(value)], exact, 0.52) << "level " << level << ", value " << value;
        }
    }
}

TEST(BrightnessAndContrast, ChangeOnlyTheChosenChannelsAndNeverAlpha) {
    const Picture source = noisePicture(33, 9, 4);
    for (int chosen = 0; chosen < 8; ++chosen) {
        const ColorChannels channels{(chosen & 1) != 0, (chosen & 2) != 0, (chosen & 4) != 0};
        for (const Picture& result :
             {changed(source, [&](auto s, auto t) { brightness(s, t, 80, channels); }),
              changed(source, [&](auto s, auto t) { contrast(s, t, 80, channels); })}) {
            for (int i = 0; i < 33 * 9 * 4; ++i)
                if (!(chosen >> i % 4 & 1)) {
                    ASSERT_EQ(result.view().data[i], source.view().data[i]) << chosen;
                }
            EXPECT_EQ(result == source, chosen == 0);
        }
    }
}

TEST(Negative, TurnsEachColorRoundAndTwiceGivesThePictureBack) {
    EXPECT_EQ(curveOf(negative)[0], 255);
    EXPECT_EQ(curveOf(negative)[100], 155);
    const Picture source = noisePicture(45, 7, 4);
    const Picture inverted = changed(source, negative);
    EXPECT_EQ(alphaAt(inverted, 3, 3), alphaAt(source, 3, 3));
    EXPECT_TRUE(changed(inverted, negative) == source);
}

TEST(Flip, MirrorsEveryPixel) {
    for (const auto& [width, height] : oddSizes())
        for (const int channels : {3, 4}) {
            const int w = width, h = height;
            const Picture source = noisePicture(w, h, channels);
            EXPECT_TRUE(changed(source, flipHorizontal) == picked(source, w, h, [=](int x, int y) {
                            return Place{w - 1 - x, y};
                        }));
            EXPECT_TRUE(changed(source, flipVertical) == picked(source, w, h, [=](int x, int y) {
                            return Place{x, h - 1 - y};
                        }));
        }
}

TEST(Filters, LeaveAPlainPictureAsItIs) {
    for (const auto& [width, height] : oddSizes())
        for (const int value : {0, 1, 100, 254, 255}) {
            const auto byte = std::uint8_t(value);
            const Picture plain = plainPicture(width, height, 3, {byte, 37, byte});
            for (int level = 1; level <= 10; ++level) {
                EXPECT_TRUE(plain == changed(plain, [&](auto s, auto t) { sharpen(s, t, level); }));
                EXPECT_TRUE(plain == changed(plain, [&](auto s, auto t) { gaussianBlur(s, t, level); }));
            }
        }
}

TEST(Sharpen, MatchesItsFormulaAtEveryPixel) {
    constexpr int Weights[3] = {1, 2, 1};
    for (const auto& [width, height] : oddSizes())
        for (const int level : {1, 5, 10}) {
            const Picture source = noisePicture(width, height, 3 + level % 2);
            const Picture result = changed(source, [&](auto s, auto t) { sharpen(s, t, level); });
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x) {
                    double mean = 0;
                    for (int j = -1; j <= 1; ++j)
                        for (int i = -1; i <= 1; ++i)
                            mean += Weights[i + 1] * Weights[j + 1] / 16.0 *
                                    colorAt(source, std::clamp(x + i, 0, width - 1),
                                            std::clamp(y + j, 0, height - 1))
                                        .green;
                    const int value = colorAt(source, x, y).green;
                    const double exact = std::clamp(value + 0.3 * level * (value - mean), 0.0, 255.0);
                    ASSERT_NEAR(colorAt(result, x, y).green, exact, 0.6) << x << ", " << y;
                    ASSERT_EQ(alphaAt(result, x, y), alphaAt(source, x, y));
                }
        }
}

TEST(Blur, SpreadsAPointAsTheBellCurveTells) {
    for (int level = 1; level <= 10; ++level) {
        Picture point = plainPicture(81, 81, 3, {0, 0, 0});
        const int side = std::max(1, level / 2); // a single pixel would vanish in rounding
        for (int y = 40 - side; y <= 40 + side; ++y)
            for (int x = 40 - side; x <= 40 + side; ++x)
                point.edit().pixel(x, y)[0] = 255;
        const Picture result = changed(point, [&](auto s, auto t) { gaussianBlur(s, t, level); });
        const double deviation = level / 2.0;
        const auto share = [&](double distance) { // of the square's extent along one axis
            double inside = 0;
            double all = 0;
            for (int k = -50; k <= 50; ++k) {
                const double bell = std::exp(-k * k / (2 * deviation * deviation));
                all += bell;
                inside += std::abs(distance + k) <= side ? bell : 0;
            }
            return inside / all;
        };
        for (int d = 0; d < 20; ++d) {
            EXPECT_NEAR(colorAt(result, 40 + d, 40).red, 255 * share(d) * share(0), 1.5) << level << ' ' << d;
            EXPECT_EQ(colorAt(result, 40 + d, 40), colorAt(result, 40 - d, 40));
            EXPECT_NEAR(colorAt(result, 40, 40 + d).red, colorAt(result, 40 + d, 40).red, 1);
        }
    }
}

TEST(Blur, DoesNotLetTheColorOfTransparentPixelsShineThrough) {
    const Picture result =
        changed(redBesideHiddenGreen(20, 10), [](auto s, auto t) { gaussianBlur(s, t, 4); });
    EXPECT_EQ(colorAt(result, 10, 10), (Rgb{255, 0, 0}));
    EXPECT_NEAR(alphaAt(result, 10, 10), 140, 30);
}
