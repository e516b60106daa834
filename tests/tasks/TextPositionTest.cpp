// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TextPosition.h"

#include "tests/support/TestDesktop.h"
#include "tests/tasks/TaskRows.h"

#include <QRect>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

struct Case {
    const char* what;
    int orientation, position, alignment;
    Size picture, text;
    QPoint expected;
};

// Odd sizes put the halves on ties: 30.5 goes to 30, 31.5 to 32.
const Case cases[] = {
    {"top left, anchored in the middle of an odd text", 0, 0, 1, {101, 101}, {43, 20}, {22, 0}},
    {"top centre", 0, 1, 0, {103, 101}, {40, 20}, {32, 0}},
    {"top centre, anchored centre", 0, 1, 1, {103, 101}, {40, 20}, {52, 0}},
    {"top right, anchored centre", 0, 2, 1, {101, 101}, {41, 20}, {80, 0}},
    {"centre", 0, 4, 0, {101, 101}, {40, 20}, {30, 40}},
    {"a text wider than the picture hangs out on both sides", 0, 4, 0, {11, 7}, {40, 20}, {-14, -6}},
    {"vertical top centre", 1, 1, 0, {103, 101}, {40, 20}, {62, 0}},
    {"vertical centre", 1, 4, 0, {101, 101}, {40, 20}, {60, 30}},
};

} // namespace

TEST(TextPosition, IsFlushWithTheEdgesAndRoundsHalvesToTheEvenNeighbour) {
    for (const Case& c : cases) {
        const QPoint place = textPosition(c.orientation, c.position, c.alignment, c.picture, c.text);
        EXPECT_EQ(place.x(), c.expected.x()) << c.what;
        EXPECT_EQ(place.y(), c.expected.y()) << c.what;
    }
}

/// The picture is blue where the text's box is, whose size is odd in one direction.
TEST(TextPosition, PutsTheBoxOfATextAtTheEdgesInEveryOrientationAndAlignment) {
    const TestDesktop desktop;
    constexpr int width = 201, height = 132;
    const auto start = [](int along, int text, int all) {
        return along == 0 ? 0.0 : along == 1 ? (all - text) / 2.0 : double(all - text);
    };
    for (const auto& [orientation, alignment] :
         {std::pair(0, 0), std::pair(0, 1), std::pair(0, 2), std::pair(1, 0)})
        for (int position = 0; position < 9; ++position) {
            SCOPED_TRACE(testing::Message() << orientation << " " << alignment << " " << position);
            TaskRow row = textRow(QByteArray::number(position));
            row.columns[2] = QStringLiteral("False");
            row.columns[3] = QString::number(-90 * orientation);
            row.columns[4] = QString::number(alignment);
            row.columns[11] = QStringLiteral("16711680");
            row.columns[12] = QString::number(orientation);
            ImageBox box = boxWith(plainPicture(width, height, 3, {255, 255, 255}));
            EXPECT_TRUE(replayAll(box, {row}));
            QRect drawn;
            for (int y = 0; y < height; ++y)
                for (int x = 0; x < width; ++x)
                    if (colorAt(box.picture(), x, y) == Rgb{0, 0, 255})
                        drawn |= QRect(x, y, 1, 1);
            Size text{box.TextWidth(row.columns[14]), box.TextHeight(row.columns[14])};
            if (orientation)
                std::swap(text.width, text.height);
            EXPECT_EQ(drawn.size(), QSize(text.width, text.height));
            EXPECT_NEAR(drawn.left(), start(position % 3, text.width, width), 0.5);
            EXPECT_NEAR(drawn.top(), start(position / 3, text.height, height), 0.5);
        }
}
