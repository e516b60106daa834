// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/TextDrawing.h"

#include "tests/support/TestPictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::operations;
using namespace tarsel::test;

namespace {

constexpr Rgb white{255, 255, 255};

/// A full block fills its whole cell with ink, so that its place is known to the pixel.
const QString block = QStringLiteral("\u2588\u2588\u2588");

QFont sans(double points, bool smooth = true) {
    return textFont(QStringLiteral("DejaVu Sans"), points, false, false, false, smooth);
}

TextLine lineAt(int x, int y, const QString& text, double points = 24) {
    TextLine line;
    line.text = text;
    line.font = sans(points);
    line.x = x;
    line.y = y;
    return line;
}

Picture drawn(const TextLine& line, int width = 200, int height = 160, int channels = 3) {
    Picture picture = plainPicture(width, height, channels, white);
    drawText(picture.edit(), line);
    return picture;
}

/// The pixels that are not white any more; an empty box has right and bottom before left and top.
struct InkBox {
    int left = 1 << 20;
    int top = 1 << 20;
    int right = -1;
    int bottom = -1;
    bool operator==(const InkBox&) const = default;
};

InkBox inkOf(const Picture& picture) {
    InkBox box;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (colorAt(picture, x, y) != white) {
                box.left = std::min(box.left, x);
                box.right = std::max(box.right, x + 1);
                box.top = std::min(box.top, y);
                box.bottom = std::max(box.bottom, y + 1);
            }
    return box;
}

} // namespace

TEST(TextSize, FollowsThePointsAtNinetySixToTheInch) {
    EXPECT_EQ(sans(12).pixelSize(), 16);
    EXPECT_EQ(sans(72).pixelSize(), 96);
    EXPECT_EQ(sans(0).pixelSize(), 1);
    const TextSize small = textSize(QStringLiteral("Hamburg"), sans(12));
    const TextSize large = textSize(QStringLiteral("Hamburg"), sans(120));
    EXPECT_NEAR(large.width, 10 * small.width, 10);
    EXPECT_NEAR(large.height, 10 * small.height, 12);
    EXPECT_EQ(textSize(QString(), sans(12)).width, 0);
}

TEST(DrawText, AlignmentSaysWhereTheAnchorLiesOnTheText) {
    for (const int alignment : {0, 1, 2}) {
        TextLine line = lineAt(100, 30, block);
        line.alignment = alignment;
        const int width = textSize(line.text, line.font).width;
        const InkBox ink = inkOf(drawn(line));
        EXPECT_NEAR(ink.left, 100 - alignment * width / 2.0, 2) << alignment;
        EXPECT_NEAR(ink.right, 100 + (2 - alignment) * width / 2.0, 2) << alignment;
    }
}

TEST(DrawText, ATurnByMinusNinetyIsTheSamePictureTurned) {
    TextLine line = lineAt(5, 7, QStringLiteral("Ag"), 30);
    const Picture straight = drawn(line, 120, 100);
    line.x = 100 - 7;
    line.y = 5;
    line.angle = -90;
    const Picture turned = drawn(line, 100, 120);
    double difference = 0;
    for (int y = 0; y < 100; ++y)
        for (int x = 0; x < 120; ++x)
            difference += std::abs(colorAt(turned, 99 - y, x).red - colorAt(straight, x, y).red);
    EXPECT_LT(difference / (120 * 100), 1.0);
    EXPECT_NE(inkOf(turned), InkBox());
}

TEST(DrawText, FillsItsBoxOnlyWhereABackgroundIsAskedFor) {
    TextLine line = lineAt(20, 10, QStringLiteral("l l"));
    const auto [width, height] = textSize(line.text, line.font);
    EXPECT_EQ(colorAt(drawn(line), 21, 11), white);
    line.background = Rgb{0, 200, 0};
    const Picture boxed = drawn(line);
    EXPECT_EQ(inkOf(boxed), (InkBox{20, 10, 20 + width, 10 + height}));
    EXPECT_EQ(colorAt(boxed, 20, 10), (Rgb{0, 200, 0}));
}

TEST(DrawText, WithoutAntiAliasHasNoHalfTones) {
    TextLine line = lineAt(20, 10, QStringLiteral("SO8&"), 40);
    const auto halfTones = [](const Picture& picture) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const Rgb color = colorAt(picture, x, y);
                count += color != white && color != Rgb{0, 0, 0};
            }
        return count;
    };
    EXPECT_GT(halfTones(drawn(line)), 50);
    line.font = sans(40, false);
    EXPECT_EQ(halfTones(drawn(line)), 0);
    EXPECT_NE(inkOf(drawn(line)), InkBox());
}

TEST(DrawText, IsCutOffAtTheEdges) {
    const QString longText(300, QLatin1Char('W'));
    for (const auto& [x, y] : {Place{-1000, 5}, {0, -20}, {190, 150}, {-3000, 60}})
        for (const double angle : {0.0, 30.0, -90.0}) {
            TextLine line = lineAt(x, y, longText);
            line.angle = angle;
            drawn(line);
        }
    EXPECT_EQ(inkOf(drawn(lineAt(-1000, 20, longText))).right, 200);
    for (const auto& [x, y] : {Place{500, 10}, {10, 500}, {-2000, 10}, {2147483647, 2147483647}})
        EXPECT_EQ(inkOf(drawn(lineAt(x, y, block))), InkBox()) << x << ", " << y;
    EXPECT_EQ(inkOf(drawn(lineAt(10, 10, QString()))), InkBox());
}

TEST(DrawText, BecomesOpaqueOnATransparentPicture) {
    Picture picture(60, 60, 4);
    std::fill_n(picture.edit().data, 60 * 60 * 4, std::uint8_t(0));
    TextLine line = lineAt(5, 5, block);
    line.color = Rgb{255, 0, 0};
    drawText(picture.edit(), line);
    EXPECT_EQ(colorAt(picture, 30, 25), line.color);
    for (const auto& [x, y, alpha] : {std::array{30, 25, 255}, {1, 1, 0}})
        EXPECT_EQ(alphaAt(picture, x, y), alpha);
}
