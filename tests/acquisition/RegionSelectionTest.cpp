// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/RegionSelection.h"

#include <gtest/gtest.h>

using namespace tarsel;

namespace {

const QRect screen(0, 0, 200, 100);
constexpr int reach = 4;

/// The rectangle after a drag from one pixel to another.
QRect dragged(const QRect& before, QPoint from, QPoint to, bool square = false) {
    RegionSelection selection(screen);
    selection.select(before);
    selection.press(from, reach);
    selection.drag(to, square);
    selection.release();
    return selection.rect();
}

} // namespace

TEST(RegionSelection, DragsMakeMoveAndStretchItWithinTheScreen) {
    const QRect some(20, 10, 60, 40); // to 79, 49
    const struct {
        const char* what;
        QRect before;
        QPoint from, to;
        QRect after;
    } cases[] = {
        {"new, both ends in it", {}, {5, 6}, {14, 9}, {5, 6, 10, 4}},
        {"new, up and to the left", {}, {14, 9}, {5, 6}, {5, 6, 10, 4}},
        {"new beyond the screen", {}, {190, 90}, {300, 300}, {190, 90, 10, 10}},
        {"outside of one begins another", some, {150, 80}, {151, 81}, {150, 80, 2, 2}},
        {"moved", some, {50, 30}, {55, 28}, {25, 8, 60, 40}},
        {"moved beyond the screen", some, {50, 30}, {500, -90}, {140, 0, 60, 40}},
        {"left side", some, {20, 30}, {25, 70}, {25, 10, 55, 40}},
        {"right side from 4 pixels outside", some, {83, 30}, {93, 30}, {20, 10, 70, 40}},
        {"right side beyond the left one", some, {79, 30}, {10, 30}, {10, 10, 11, 40}},
        {"upper right corner", some, {79, 10}, {89, 5}, {20, 5, 70, 45}},
        {"lower left corner beyond the screen", some, {20, 49}, {-50, 130}, {0, 10, 80, 90}},
        {"a press alone", some, {150, 80}, {150, 80}, some},
    };
    for (const auto& each : cases)
        EXPECT_EQ(dragged(each.before, each.from, each.to), each.after) << each.what;
}

TEST(RegionSelection, ASquareStaysSquareAtTheEdge) {
    EXPECT_EQ(dragged({}, {10, 10}, {20, 40}, true), QRect(10, 10, 31, 31));
    EXPECT_EQ(dragged({}, {10, 90}, {80, 95}, true), QRect(10, 90, 10, 10));
    EXPECT_EQ(dragged({}, {30, 50}, {20, 0}, true), QRect(0, 20, 31, 31));
}

TEST(RegionSelection, KeysMoveAndResizeItAndCancelTakesADragBack) {
    RegionSelection selection(screen);
    selection.move({1, 1}); // nothing yet
    EXPECT_TRUE(selection.rect().isEmpty());
    selection.select({190, 0, 50, 5});
    EXPECT_EQ(selection.rect(), QRect(190, 0, 10, 5));
    selection.move({10, -1});
    EXPECT_EQ(selection.rect(), QRect(190, 0, 10, 5));
    selection.move({-3, 2});
    selection.resize({100, -50});
    EXPECT_EQ(selection.rect(), QRect(187, 2, 13, 1));
    selection.press({100, 50}, reach);
    selection.drag({120, 60});
    selection.cancel();
    EXPECT_EQ(selection.rect(), QRect(187, 2, 13, 1));
    EXPECT_FALSE(selection.isHeld());
}

TEST(RegionSelection, ANarrowOneIsHeldAtTheNearerSide) {
    RegionSelection selection(screen);
    selection.select({50, 10, 4, 60}); // 50 to 53
    EXPECT_EQ(selection.gripAt({50, 40}, reach), (RegionSelection::Grip{.left = true}));
    EXPECT_EQ(selection.gripAt({53, 40}, reach), (RegionSelection::Grip{.right = true}));
    EXPECT_TRUE(selection.gripAt({60, 40}, reach).isNone());
}
