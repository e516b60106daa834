// SPDX-License-Identifier: GPL-3.0-or-later
// Operations that change pixels one by one or by their neighbours, and keep the size.

#include "pixels/operations/Brightness.h"
#include "pixels/operations/Contrast.h"
#include "pixels/operations/Crop.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/GaussianBlur.h"
#include "pixels/operations/Negative.h"
#include "pixels/operations/Sharpen.h"
#include "tests/support/TestPictures.h"

#include <algorithm>
#include <cmath>
#include <cstring>
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
        {"strong blur", [](auto s, auto t) { gaussianBlur(s, t, 8); }},
        {"flip horizontally", flipHorizontal},
        {"flip vertically", flipVertical},
    };
    return operations;
}

} // namespace

TEST(SizeKeepingOperations, GiveTheSameInAPartOfAPictureAsIntoAnotherOne) {
    for (const auto& [name, operation] : sizeKeepingOperations())
        for (const auto& [width, height] : oddSizes())
            for (const int channels : {3, 4}) {
                const int w = width, h = height;
                const Picture before = noisePicture(w + 20, h + 15, channels);
                const Picture part = noisePicture(w, h, channels, 2);
                Picture result = before;
                const PixelView view = result.edit();
                const PixelView target{view.pixel(10, 8), w, h, channels, view.stride};
                crop(part.view(), target, 0, 0, {});
                operation(target, target);
                const Picture expected = changed(part, operation);
                for (int y = 0; y < h + 15; ++y)
                    for (int x = 0; x < w + 20; ++x) {
                        const bool isInside = x >= 10 && x < 10 + w && y >= 8 && y < 8 + h;
                        const auto* const pixel =
                            isInside ? expected.view().pixel(x - 10, y - 8) : before.view().pixel(x, y);
                        ASSERT_EQ(std::memcmp(result.view().pixel(x, y), pixel, std::size_t(channels)), 0)
                            << name << ' ' << w << 'x' << h << " at " << x << ", " << y;
                    }
            }
}

TEST(BrightnessAndContrast, FollowTheirFormulasAtEveryLevelAndChangeNothingAtFifty) {
    const Picture values = pictureOf(256, 1, 3, [](int x, int) { return Rgb{std::uint8_t(x), 0, 0}; });
    for (int level = -7; level <= 107; ++level) {
        const int bounded = std::clamp(level, 0, 100);
        const double factor = bounded <= 50 ? bounded / 50.0 : bounded < 100 ? 50.0 / (100 - bounded) : 1e9;
        const Picture brighter = changed(values, [&](auto s, auto t) { brightness(s, t, level, {}); });
        const Picture stronger = changed(values, [&](auto s, auto t) { contrast(s, t, level, {}); });
        for (int value = 0; value < 256; ++value) {
            const double sum = std::clamp(value + std::round((bounded - 50) * 255 / 50.0), 0.0, 255.0);
            const double product = std::clamp(127.5 + (value - 127.5) * factor, 0.0, 255.0);
            ASSERT_EQ(colorAt(brighter, value, 0).red, sum) << "level " << level << ", value " << value;
            ASSERT_NEAR(colorAt(stronger, value, 0).red, product, level == 50 ? 0 : 0.52)
                << "level " << level << ", value " << value;
        }
    }
}

TEST(BrightnessAndContrast, ChangeOnlyTheChosenChannelsAndNeverAlphaAsTheNegativeDoes) {
    const Picture source = noisePicture(33, 9, 4);
    const Picture inverted = changed(source, negative);
    for (int i = 0; i < 33 * 9 * 4; ++i)
        ASSERT_EQ(inverted.view().data[i], source.view().data[i] ^ (i % 4 == 3 ? 0 : 255));
    for (int chosen = 0; chosen < 8; ++chosen) {
        const ColorChannels channels{(chosen & 1) != 0, (chosen & 2) != 0, (chosen & 4) != 0};
        for (const Picture& result :
             {changed(source, [&](auto s, auto t) { brightness(s, t, 80, channels); }),
              changed(source, [&](auto s, auto t) { contrast(s, t, 80, channels); })}) {
            for (int i = 0; i < 33 * 9 * 4; ++i)
                ASSERT_TRUE((chosen >> i % 4 & 1) || result.view().data[i] == source.view().data[i]);
            EXPECT_EQ(result == source, chosen == 0);
        }
    }
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
