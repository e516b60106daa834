// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TextPosition.h"

#include "tests/tasks/TaskRows.h"

#include <gtest/gtest.h>

using namespace tarsel;

namespace {

struct Case {
    const char* what;
    int orientation, position, alignment;
    Size picture, text;
    QPoint expected;
};

// Odd sizes put the halves on ties: 30.5 goes to 30, 31.5 to 32.
const Case cases[] = {
    {"top left", 0, 0, 0, {101, 101}, {40, 20}, {0, 0}},
    {"top left, anchored in the middle of an odd text", 0, 0, 1, {101, 101}, {43, 20}, {22, 0}},
    {"top centre", 0, 1, 0, {103, 101}, {40, 20}, {32, 0}},
    {"top centre, anchored centre", 0, 1, 1, {103, 101}, {40, 20}, {52, 0}},
    {"top right", 0, 2, 0, {101, 101}, {40, 20}, {61, 0}},
    {"top right, anchored centre", 0, 2, 1, {101, 101}, {41, 20}, {80, 0}},
    {"centre left", 0, 3, 0, {101, 103}, {40, 20}, {0, 42}},
    {"centre", 0, 4, 0, {101, 101}, {40, 20}, {30, 40}},
    {"bottom right, anchored right", 0, 8, 2, {101, 101}, {40, 20}, {101, 81}},
    {"a text wider than the picture hangs out on both sides", 0, 4, 0, {11, 7}, {40, 20}, {-14, -6}},
    {"vertical top left", 1, 0, 0, {101, 101}, {40, 20}, {20, 0}},
    {"vertical top centre", 1, 1, 0, {103, 101}, {40, 20}, {62, 0}},
    {"vertical centre", 1, 4, 0, {101, 101}, {40, 20}, {60, 30}},
    {"vertical bottom right", 1, 8, 0, {101, 99}, {40, 20}, {101, 59}},
    {"vertical ignores the alignment", 1, 8, 2, {101, 99}, {40, 20}, {101, 59}},
};

} // namespace

TEST(TextPosition, IsFlushWithTheEdgesAndRoundsHalvesToTheEvenNeighbour) {
    for (const Case& c : cases) {
        const QPoint place = textPosition(c.orientation, c.position, c.alignment, c.picture, c.text);
        EXPECT_EQ(place.x(), c.expected.x()) << c.what;
        EXPECT_EQ(place.y(), c.expected.y()) << c.what;
    }
}
