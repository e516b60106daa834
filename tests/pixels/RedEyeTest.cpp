// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/Boxes.h"
#include "tests/support/ErrorNumberOf.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

ImageBox boxOf(int width, int height, const std::vector<std::uint8_t>& color) {
    Picture picture(width, height, int(color.size()));
    const PixelView view = picture.edit();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            std::ranges::copy(color, view.pixel(x, y));
    ImageBox box = boxWith(picture);
    box.SelectionActive = true;
    return box;
}

} // namespace

TEST(RedEye, OnlyRedPixelsLoseTheirCastAndKeepGreenBlueAndAlpha) {
    const struct {
        std::vector<std::uint8_t> color;
        int red;
    } cases[] = {
        {{200, 40, 60}, 50},       {{120, 60, 60}, 60}, {{105, 60, 60, 77}, 82}, // half of the way
        {{224, 172, 150, 9}, 224}, {{90, 60, 60}, 90},  {{255, 0, 0}, 0},        {{0, 0, 0}, 0},
        {{250, 250, 250}, 250},    {{10, 200, 30}, 10},
    };
    for (const auto& [color, red] : cases) {
        ImageBox box = boxOf(1, 1, color);
        box.SelectRectangle(0, 0, 1, 1);
        box.RedEyeCorrection();
        const std::uint8_t* pixel = box.picture().view().pixel(0, 0);
        EXPECT_EQ(int(pixel[0]), red) << int(color[0]);
        EXPECT_TRUE(std::equal(color.begin() + 1, color.end(), pixel + 1)) << int(color[0]);
    }
}

TEST(RedEye, OnlyTheSelectionChangesAlsoWhereItLeavesThePicture) {
    const auto corrected = [](const std::function<void(ImageBox&)>& select) {
        ImageBox box = boxOf(5, 5, {200, 20, 20});
        select(box);
        box.RedEyeCorrection();
        std::string rows;
        for (int y = 0; y < 5; ++y)
            for (int x = 0; x < 5; ++x)
                rows += box.picture().view().pixel(x, y)[0] == 20 ? '#' : '.';
        return rows;
    };
    EXPECT_EQ(corrected([](ImageBox& box) { box.SelectRectangle(1, 2, 4, 3); }), "..........."
                                                                                 "###"
                                                                                 "...........");
    EXPECT_EQ(corrected([](ImageBox& box) { box.SelectRectangle(2147483647, 9, 3, 3); }), "..............."
                                                                                          "...##"
                                                                                          "...##");
    EXPECT_EQ(corrected([](ImageBox& box) { box.SelectEllipse(0, 0, 5, 5); }), ".###."
                                                                               "#####"
                                                                               "#####"
                                                                               "#####"
                                                                               ".###.");
    ImageBox box = boxOf(5, 5, {200, 20, 20});
    EXPECT_EQ(errorNumberOf([&] { box.RedEyeCorrection(); }), ErrorNumber::InvalidCall);
}
