// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/RubberBand.h"

#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

using enum RubberBand::State;
using Shape = RubberBand::Shape;

constexpr Size picture{100, 80};

std::string corners(const RubberBand& band) {
    std::string text;
    for (const int each : {band.start().x(), band.start().y(), band.end().x(), band.end().y()})
        text += (text.empty() ? "" : " ") + std::to_string(each);
    return text;
}

RubberBand drawn(QPoint start, QPoint end) {
    RubberBand band;
    band.arm(Shape::Rectangle);
    band.press(start);
    band.moveTo(end, picture);
    band.release();
    return band;
}

} // namespace

TEST(RubberBand, KeepsItsCornersInTheOrderDraggedThroughEachGripAndMove) {
    struct Case {
        QPoint start, end, press, move;
        RubberBand::State state; ///< while the button is held
        const char* corners;     ///< afterwards
    };
    const Case cases[] = {
        {{10, 20}, {50, 60}, {12, 22}, {5, 6}, Resizing, "5 6 50 60"},     // grip 1
        {{10, 20}, {50, 60}, {48, 18}, {55, 6}, Resizing, "10 6 55 60"},   // 2
        {{10, 20}, {50, 60}, {10, 60}, {5, 70}, Resizing, "5 20 50 70"},   // 3
        {{50, 60}, {10, 20}, {10, 20}, {70, 75}, Resizing, "50 60 70 75"}, // 4, across the others
        {{10, 20}, {50, 60}, {30, 20}, {99, 25}, Resizing, "10 25 50 60"}, // 5
        {{50, 60}, {10, 20}, {30, 20}, {99, 25}, Resizing, "50 60 10 25"}, // 6, of a band dragged back
        {{10, 20}, {50, 60}, {10, 40}, {15, 79}, Resizing, "15 20 50 60"}, // 7
        {{10, 20}, {50, 60}, {50, 40}, {55, 79}, Resizing, "10 20 55 60"}, // 8
        {{10, 20}, {25, 60}, {17, 20}, {20, 30}, Moving, "13 30 28 70"},   // 15 wide: no grip above
        {{10, 20}, {26, 60}, {18, 20}, {20, 30}, Resizing, "10 30 26 60"}, // 16 wide
        {{10, 20}, {50, 35}, {10, 27}, {20, 30}, Moving, "20 23 60 38"},   // 15 high
        {{10, 20}, {50, 60}, {13, 20}, {23, 21}, Moving, "20 21 60 61"},   // 3 pixels from a grip
        {{10, 20}, {50, 60}, {10, 23}, {20, 24}, Moving, "20 21 60 61"},   // and below it
        {{50, 60}, {10, 20}, {20, 30}, {70, 50}, Moving, "100 80 60 40"},  // as far as it gets
        {{10, 20}, {50, 60}, {20, 30}, {9, 31}, Moving, "10 20 50 60"},    // and not further, not even down
        {{10, 20}, {50, 60}, {60, 70}, {10, 20}, Resizing, "10 20 50 60"}, // beside it
    };
    for (const Case& each : cases) {
        RubberBand band = drawn(each.start, each.end);
        band.press(each.press);
        band.moveTo(each.move, picture);
        EXPECT_EQ(band.state(), each.state) << each.corners;
        band.release();
        EXPECT_EQ(band.state(), Drawn);
        EXPECT_EQ(corners(band), each.corners);
    }
    EXPECT_EQ(drawn({50, 60}, {10, 20}).sorted(), QRect(10, 20, 40, 40));
}

TEST(RubberBand, IsMovedAndSizedByKeysInsideThePicture) {
    RubberBand band = drawn({50, 60}, {10, 20});
    EXPECT_TRUE(band.shift({-10, 20}, picture));
    EXPECT_FALSE(band.shift({-1, 0}, picture));
    EXPECT_EQ(corners(band), "40 80 0 40");
    band.grow({500, 5}, picture);
    EXPECT_EQ(corners(band), "100 80 0 40") << "the right and the lower edge, whichever corner has them";
    band.grow({-500, -500}, picture, {3, 1});
    EXPECT_EQ(corners(band), "3 41 0 40") << "a pixel of a picture remains";
}

} // namespace tarsel::test
