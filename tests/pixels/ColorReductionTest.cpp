// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/ColorReduction.h"
#include "pixels/operations/GaussianBlur.h"
#include "tests/support/CodecTestFiles.h"
#include "tests/support/TestPictures.h"

#include <cmath>
#include <gtest/gtest.h>

namespace tarsel {
namespace {

using test::colorAt;
using test::pictureOf;

Picture blurred(const Picture& picture) {
    Picture result(picture.width(), picture.height(), picture.channels());
    operations::gaussianBlur(picture.view(), result.edit(), 2);
    return result;
}

double psnr(const Picture& one, const Picture& other) {
    double sum = 0;
    const qsizetype count = qsizetype(one.width()) * one.height() * 3;
    for (qsizetype i = 0; i < count; ++i)
        sum += std::pow(one.view().data[i] - other.view().data[i], 2);
    return 10 * std::log10(255.0 * 255 * double(count) / std::max(sum, 1e-9));
}

constexpr ColorFormat allFormats[] = {ColorFormat::Colors256,  ColorFormat::Gray256,
                                      ColorFormat::Colors16,   ColorFormat::Gray16,
                                      ColorFormat::Monochrome, ColorFormat::BlackAndWhite};

TEST(ColorReduction, picturesWhoseColoursFitKeepEveryPixelAtEverySize) {
    for (const auto& [width, height] : test::oddSizes()) {
        SCOPED_TRACE(testing::Message() << width << " x " << height);
        const auto stepsOf = [&](int colors, bool gray) {
            return pictureOf(width, height, 3, [=](int x, int y) {
                const int i = (x * 5 + y * 3) % colors;
                const auto value = std::uint8_t(i * 255 / (colors - 1));
                return gray ? Rgb{value, value, value}
                            : Rgb{value, std::uint8_t(255 - value), std::uint8_t(i * 3)};
            });
        };
        for (const ColorFormat format : allFormats) {
            const bool gray = format != ColorFormat::Colors256 && format != ColorFormat::Colors16;
            const int colors = format <= ColorFormat::Gray256 ? 256 : format <= ColorFormat::Gray16 ? 16 : 2;
            const Picture picture = stepsOf(colors, gray);
            const IndexedPicture indexed = reduceToPalette(picture, format, {});
            EXPECT_TRUE(withPaletteColors(indexed) == picture) << int(format);
            EXPECT_EQ(indexed.isGray, gray) << int(format);
            EXPECT_LE(indexed.palette.size(), std::size_t(1) << indexed.bits) << int(format);
        }
    }
}

TEST(ColorReduction, photographsKeepTheirLookFromADistance) {
    const struct {
        ColorFormat format;
        double seen; ///< dB, blurred
        double exact;
    } bounds[] = {{ColorFormat::Colors256, 32.5, 27}, {ColorFormat::Colors16, 20.5, 16.5}};
    const Picture photograph = test::photograph(320, 240);
    for (const auto& [format, seen, exact] : bounds) {
        const IndexedPicture indexed = reduceToPalette(photograph, format, {});
        EXPECT_EQ(indexed.palette.size(), std::size_t(1) << indexed.bits) << int(format);
        EXPECT_GT(psnr(blurred(withPaletteColors(indexed)), blurred(photograph)), seen) << int(format);
        EXPECT_GT(psnr(withPaletteColors(indexed), photograph), exact) << int(format);
    }
}

TEST(ColorReduction, flatAreasKeepTheirColourBesideSmoothEdges) {
    const Rgb red{200, 40, 40};
    const Picture logo = pictureOf(300, 200, 3, [&](int x, int y) {
        const double inside = std::clamp(60.5 - std::hypot(x - 150, y - 100), 0.0, 1.0);
        const auto mixed = [&](int from, int to) { return std::uint8_t(from + inside * (to - from)); };
        return Rgb{mixed(red.red, 30), mixed(red.green, 200), mixed(red.blue, 90)};
    });
    const Picture reduced = withPaletteColors(reduceToPalette(logo, ColorFormat::Colors16, {}));
    EXPECT_EQ(colorAt(reduced, 3, 3), red);
    EXPECT_GT(psnr(reduced, logo), 45);
}

TEST(ColorReduction, grayIsTheNamedLumaAndDiffusionKeepsItsMean) {
    const Picture colors = pictureOf(3, 1, 3, [](int x, int) {
        return Rgb{std::uint8_t(x == 0 ? 255 : 0), std::uint8_t(x == 1 ? 255 : 0),
                   std::uint8_t(x == 2 ? 255 : 0)};
    });
    const Picture gray = withPaletteColors(reduceToPalette(colors, ColorFormat::Gray256, {}));
    EXPECT_EQ(colorAt(gray, 0, 0).red, 76);
    EXPECT_EQ(colorAt(gray, 1, 0).red, 150);
    EXPECT_EQ(colorAt(gray, 2, 0).red, 29);
    for (const int level : {3, 60, 128, 200, 250}) {
        const auto value = std::uint8_t(level);
        const Picture plain = test::plainPicture(101, 97, 3, {value, value, value});
        for (const ColorFormat format : {ColorFormat::Gray16, ColorFormat::Monochrome})
            EXPECT_NEAR(test::meanOf(withPaletteColors(reduceToPalette(plain, format, {})), 0), level, 1.5)
                << int(format);
        const Picture sharp = withPaletteColors(reduceToPalette(plain, ColorFormat::BlackAndWhite, {}));
        EXPECT_TRUE(sharp == test::plainPicture(101, 97, 3, level < 128 ? Rgb{0, 0, 0} : Rgb{255, 255, 255}));
    }
}

TEST(ColorReduction, transparentPixelsTakeOneIndexAndNoColour) {
    const Picture noise = test::noisePicture(64, 48, 4);
    const Picture opaque = test::noisePicture(64, 48, 3);
    const Rgb hiddenColor = colorAt(opaque, 20, 20);
    for (const ColorFormat format : allFormats) {
        SCOPED_TRACE(int(format));
        const IndexedPicture byAlpha = reduceToPalette(noise, format, {.isKept = true});
        const IndexedPicture byColor = reduceToPalette(opaque, format, {true, hiddenColor});
        EXPECT_LE(byAlpha.palette.size(), std::size_t(1) << byAlpha.bits);
        EXPECT_EQ(byAlpha.transparentIndex, int(byAlpha.palette.size()) - 1);
        EXPECT_FALSE(byAlpha.isGray);
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 64; ++x) {
                ASSERT_EQ(byAlpha.row(y)[x] == byAlpha.transparentIndex, test::alphaAt(noise, x, y) < 128);
                ASSERT_EQ(byColor.row(y)[x] == byColor.transparentIndex,
                          colorAt(opaque, x, y) == hiddenColor);
            }
        EXPECT_EQ(reduceToPalette(noise, format, {}).transparentIndex, -1) << "laid on white";

        const Rgb seen = colorAt(withPaletteColors(reduceToPalette(opaque, format, {})), 9, 9);
        const IndexedPicture picked = reduceToPalette(opaque, format, {true, seen});
        EXPECT_EQ(picked.row(9)[9], picked.transparentIndex) << "a colour that the reduction made";
    }
    const Picture red = test::redBesideHiddenGreen(24, 12);
    const IndexedPicture palette = reduceToPalette(red, ColorFormat::Colors16, {.isKept = true});
    EXPECT_EQ(palette.palette, (std::vector<Rgb>{{255, 0, 0}, {255, 255, 255}}))
        << "the hidden green is gone";
}

} // namespace
} // namespace tarsel
