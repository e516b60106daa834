// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/PreviewStep.h"
#include "tasks/frmFrameDummy.h"
#include "tasks/steps/Steps.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/Text.h"
#include "tests/tasks/TaskRows.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

struct Sizes {
    int left, top, middle, right, side, sideLength, bottom;
};

constexpr Sizes shadowSizes{18, 12, 9, 18, 12, 9, 12}, patternedShadow{18, 12, 18, 18, 12, 18, 12};

constexpr Sizes sizesOf[16] = {
    {72, 54, 144, 72, 56, 170, 54},
    {57, 42, 40, 57, 42, 39, 42},
    {23, 21, 18, 23, 21, 12, 21},
    {42, 28, 24, 42, 30, 31, 28},
    {45, 15, 31, 45, 18, 34, 15},
    {30, 45, 18, 17, 11, 18, 19},
    {21, 21, 16, 21, 21, 16, 21},
    {70, 35, 40, 70, 35, 40, 35},
    shadowSizes,
    shadowSizes,
    shadowSizes,
    shadowSizes,
    shadowSizes,
    patternedShadow,
    patternedShadow,
    shadowSizes,
};

bool hasSize(const Picture& picture, int width, int height) {
    return picture.width() == width && picture.height() == height && picture.channels() == 3;
}

/// The part of a piece at (left, top) that isn't covered by pieces laid later.
bool shows(const Picture& picture, const Picture& piece, int left, int top, int width, int height) {
    for (int y = 0; y < height; ++y)
        if (std::memcmp(picture.view().pixel(left, top + y), piece.view().row(y), std::size_t(width) * 3) !=
            0)
            return false;
    return true;
}

bool shows(const Picture& picture, const Picture& piece, int left, int top) {
    return shows(picture, piece, left, top, piece.width(), piece.height());
}

/// Mean difference of a column of one piece and a column of another.
double difference(const Picture& a, int columnA, const Picture& b, int columnB) {
    double sum = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int c = 0; c < 3; ++c)
            sum += std::abs(a.view().pixel(columnA, y)[c] - b.view().pixel(columnB, y)[c]);
    return sum / (3 * a.height());
}

Picture turned(const Picture& piece) {
    return pictureOf(piece.height(), piece.width(), 3, [&](int x, int y) {
        const std::uint8_t* pixel = piece.view().pixel(y, x);
        return Rgb{pixel[0], pixel[1], pixel[2]};
    });
}

/// Whether `right` continues `left`: columns that meet differ like those within `right`.
bool meets(const Picture& left, const Picture& right) {
    double sum = 0;
    for (int x = 1; x < right.width(); ++x)
        sum += difference(right, x - 1, right, x);
    const double mean = sum / (right.width() - 1);
    const double seam = difference(left, left.width() - 1, right, 0);
    return seam <= 2 * mean + 3;
}

/// The picture of one row on an uneven one.
Picture after(int width, int height, const TaskRow& row, void (*step)(ImageBox&, const TaskRow&)) {
    ImageBox box = boxWith(unevenPicture(width, height));
    step(box, row);
    return box.picture();
}

} // namespace

TEST(Artwork, HasAllPiecesInTheirSizesAndFormats) {
    for (int number = 0; number < frmFrameDummy::borderCount; ++number) {
        const BorderPieces& p = frmFrameDummy::border(number);
        const auto [left, top, middle, right, side, sideLength, bottom] = sizesOf[number];
        EXPECT_TRUE(hasSize(p.pTop_left, left, top) && hasSize(p.pTop_middle, middle, top) &&
                    hasSize(p.pTop_right, right, top) && hasSize(p.pleft, side, sideLength) &&
                    hasSize(p.pRight, side, sideLength) && hasSize(p.pBottom_left, left, bottom) &&
                    hasSize(p.pBottom_middle, middle, bottom) && hasSize(p.pBottom_right, right, bottom))
            << number;
    }
    const auto [leftTop, rightTop, leftBottom, rightBottom] = frmFrameDummy::stripEnds();
    for (const Picture& end : {leftTop, rightTop, leftBottom, rightBottom})
        EXPECT_TRUE(hasSize(end, 18, 27));
    for (int number = 0; number < frmFrameDummy::maskCount; ++number)
        EXPECT_TRUE(hasSize(frmFrameDummy::mask(number), 800, 600)) << number;
    int jpegs = 0, gifs = 0;
    const QDir artwork(text(":/artwork"));
    for (const QString& name : artwork.entryList()) {
        QFile file(artwork.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray start = file.read(4);
        jpegs += start.startsWith("\xFF\xD8") && name.endsWith(text(".jpg"));
        gifs += start == "GIF8" && name.endsWith(text(".gif"));
    }
    EXPECT_EQ(jpegs, 64 + 4 + 1);
    EXPECT_EQ(gifs, 64 + 7);
}

TEST(Artwork, RepeatedPiecesHaveNoSeam) {
    for (int number = 0; number < frmFrameDummy::borderCount; ++number) {
        const BorderPieces& p = frmFrameDummy::border(number);
        for (const auto& [corner, middle] :
             {std::pair(p.pTop_left, p.pTop_middle), std::pair(p.pBottom_left, p.pBottom_middle)})
            EXPECT_TRUE(meets(corner, middle) && meets(middle, middle)) << number;
        for (const Picture& side : {turned(p.pleft), turned(p.pRight)})
            EXPECT_TRUE(meets(side, side)) << number;
    }
}

TEST(Artwork, BordersGrowThePictureAndStandAtItsEdges) {
    struct Case {
        int number, width, height, resizeCanvas, framedWidth, framedHeight;
    };
    constexpr Case cases[] = {
        {4, 100, 100, 1, 134, 128}, {5, 101, 67, 1, 121, 129}, {0, 301, 203, 1, 411, 309},
        {0, 301, 203, 0, 301, 203}, {3, 211, 97, 2, 211, 97},  {8, 101, 67, 1, 123, 89},
        {13, 53, 41, 1, 75, 63},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.number);
        ImageBox box = boxWith(unevenPicture(c.width, c.height));
        modProcessTasks::subPaintFrame(box, c.number, c.resizeCanvas, c.number == 4);
        ASSERT_TRUE(hasSize(box.picture(), c.framedWidth, c.framedHeight));
        const BorderPieces& p = frmFrameDummy::border(c.number);
        const Picture& framed = box.picture();
        const int right = c.framedWidth - p.pTop_right.width(),
                  bottom = c.framedHeight - p.pBottom_left.height();
        EXPECT_TRUE(shows(framed, p.pTop_left, 0, 0));
        EXPECT_TRUE(shows(framed, p.pTop_right, right, 0));
        EXPECT_TRUE(shows(framed, p.pBottom_left, 0, bottom));
        EXPECT_TRUE(shows(framed, p.pBottom_right, right, bottom));
        const int middle = p.pTop_left.width(), seen = std::min(p.pTop_middle.width(), right - middle);
        EXPECT_TRUE(shows(framed, p.pTop_middle, middle, 0, seen, p.pTop_middle.height()));
        EXPECT_TRUE(shows(framed, p.pBottom_middle, middle, bottom, seen, p.pBottom_middle.height()));
        const int y = p.pTop_left.height() + (c.number == 4 ? 27 : 0),
                  farSide = c.framedWidth - p.pRight.width();
        const int sideSeen = std::min(p.pleft.height(), bottom - (c.number == 4 ? 27 : 0) - y);
        EXPECT_TRUE(shows(framed, p.pleft, 0, y, p.pleft.width(), sideSeen));
        EXPECT_TRUE(shows(framed, p.pRight, farSide, y, p.pRight.width(), sideSeen));
        const int shift = c.resizeCanvas == 1 ? 1 : 0, inX = p.pleft.width(), inY = p.pTop_left.height();
        const Picture source = unevenPicture(c.width, c.height);
        EXPECT_EQ(std::memcmp(framed.view().pixel(inX, inY),
                              source.view().pixel(inX * (1 - shift), inY * (1 - shift)), 3),
                  0);
        EXPECT_EQ(std::memcmp(framed.view().pixel(farSide - 1, bottom - 1),
                              source.view().pixel(farSide - 1 - inX * shift, bottom - 1 - inY * shift), 3),
                  0);
    }
    ImageBox rounded = boxWith(unevenPicture(150, 140));
    modProcessTasks::subPaintFrame(rounded, 4, 1, true);
    const StripEnds& ends = frmFrameDummy::stripEnds();
    EXPECT_TRUE(shows(rounded.picture(), ends.left_top, 0, 15));
    EXPECT_TRUE(shows(rounded.picture(), ends.right_top, 184 - 18, 15));
    EXPECT_TRUE(shows(rounded.picture(), ends.left_bottom, 0, 168 - 42));
    EXPECT_TRUE(shows(rounded.picture(), ends.right_bottom, 184 - 18, 168 - 42));
}

TEST(Artwork, RowsOfFrameAndShadowPaintTheirNumber) {
    const TestDesktop desktop;
    for (const auto& [row, number] :
         {std::pair(taskRow(13, {"255", "0", "4", "1"}), 4),
          std::pair(taskRow(13, {"255", "0", "6", "0"}), 6), std::pair(taskRow(15, {"6"}), 14)}) {
        ImageBox box = boxWith(unevenPicture(161, 149));
        modProcessTasks::subPaintFrame(box, number, number != 6, number == 4);
        EXPECT_EQ(replayed(161, 149, {row}), box.picture()) << number;
    }
    const TaskRow invisible = taskRow(14, {"True", "100", "1"}), shadow = taskRow(15, {"0"});
    EXPECT_EQ(replayed(99, 77, {taskRow(4, {"2"}), shadow}), replayed(99, 77, {invisible, shadow}))
        << "black, which a mask makes see-through for the rows after it, isn't in a shadow";
}

TEST(Artwork, AMaskIsFittedUnlessOneSideOfItFitsInAReplay) {
    struct Case {
        int width, height;
        bool isFitted;
    };
    for (const Case& c : {Case{160, 120, true}, Case{800, 300, false}, Case{640, 600, false}}) {
        const TaskRow row = taskRow(14, {"False", "0", "4"});
        ImageBox fitted = boxWith(frmFrameDummy::mask(4));
        fitted.Resize(c.width, c.height);
        const Picture replay = after(c.width, c.height, row, steps::mask);
        EXPECT_EQ(after(c.width, c.height, row, previewStep), fitted.picture());
        EXPECT_EQ(replay == fitted.picture(), c.isFitted) << c.width;
        EXPECT_EQ(shows(replay, frmFrameDummy::mask(4), 0, 0, c.width, c.height), !c.isFitted) << c.width;
    }
}

TEST(Artwork, EveryMaskShowsTheMiddleOfThePictureAndCoversItsCorners) {
    for (int number = 0; number < frmFrameDummy::maskCount; ++number) {
        const TaskRow row = taskRow(14, {"True", "0", QString::number(number).toLatin1().constData()});
        ImageBox blurred = boxWith(unevenPicture(200, 150));
        blurred.Blur(2);
        const Picture masked = after(200, 150, row, steps::mask);
        EXPECT_EQ(std::memcmp(masked.view().pixel(100, 75), blurred.picture().view().pixel(100, 75), 3), 0)
            << number;
        EXPECT_NE(std::memcmp(masked.view().pixel(1, 1), blurred.picture().view().pixel(1, 1), 3), 0)
            << number;
    }
}
