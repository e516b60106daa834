// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/support/TestDesktop.h"
#include "tests/tasks/TaskRows.h"

#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// Each test has a desktop, and fails when an error was reported that it didn't take away.
class Replay : public testing::Test {
protected:
    void TearDown() override {
        for (const ErrorReport& report : desktop.reports)
            ADD_FAILURE() << report.ErrSystem.toStdString();
    }

    TestDesktop desktop;
};

/// The rectangle in which two pictures of one size differ; empty when they don't.
QRect differing(const Picture& a, const Picture& b) {
    QRect rectangle;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (!std::equal(a.view().pixel(x, y), a.view().pixel(x, y) + 3, b.view().pixel(x, y)))
                rectangle |= QRect(x, y, 1, 1);
    return rectangle;
}

/// A Text row of 20 point at a named position, black.
TaskRow textRow(const char* position, const char* x = "0", const char* y = "0") {
    return taskRow(10, {"True", "False", "True", "0", "0", "DejaVu Sans", "20", "False", "False", "False",
                        "0", "0", "0", position, "Tarsel", x, y});
}

QString savedPicture(const QTemporaryDir& folder, int width, int height, QRgb color) {
    QImage image(width, height, QImage::Format_RGB888);
    image.fill(color);
    const QString path = folder.filePath(QStringLiteral("mark.png"));
    EXPECT_TRUE(image.save(path));
    return path;
}

TaskRow watermarkRow(const QString& path, const char* style, const char* y, const char* x) {
    TaskRow row = taskRow(9, {"False", "0", style, "", "0", y, x, "False"});
    row.column(4) = path;
    return row;
}

} // namespace

TEST_F(Replay, FlipMirrorsLeftAndRightForZeroAndTopAndBottomForAnyOtherText) {
    const Picture before = unevenPicture(13, 7);
    const Picture horizontal = replayed(13, 7, {taskRow(1, {"0"})});
    for (const char* other : {"1", "", "00", "left"}) {
        const Picture vertical = replayed(13, 7, {taskRow(1, {other})});
        EXPECT_EQ(*vertical.view().pixel(5, 0), *before.view().pixel(5, 6)) << other;
        EXPECT_FALSE(vertical == horizontal) << other;
    }
    EXPECT_TRUE(
        std::equal(before.view().pixel(0, 2), before.view().pixel(0, 2) + 3, horizontal.view().pixel(12, 2)));
}

TEST_F(Replay, RotateTakesWholeDegreesAndFillsTheCornersWithItsColour) {
    const Picture half = replayed(40, 30, {taskRow(2, {"True", "12.5", "255"})});
    EXPECT_EQ(half, replayed(40, 30, {taskRow(2, {"True", "12", "255"})}));
    EXPECT_FALSE(half == replayed(40, 30, {taskRow(2, {"True", "13", "255"})}));
    const ImageBox box = boxWith(half);
    EXPECT_EQ(box.PixelColor(0, 0), 255);
    const Picture quarter = replayed(40, 30, {taskRow(2, {"False", "90", "0"})});
    EXPECT_EQ(quarter.width(), 30);
    EXPECT_EQ(quarter.height(), 40);
}

TEST_F(Replay, ResizeGoesToASizeOrByWholePercents) {
    const Picture size = replayed(40, 30, {taskRow(3, {"True", "7", "31"})});
    EXPECT_EQ(size.width(), 7);
    EXPECT_EQ(size.height(), 31);
    const Picture percent = replayed(1000, 100, {taskRow(3, {"False", "12.5", ""})});
    EXPECT_EQ(percent.width(), 120);
    EXPECT_EQ(percent.height(), 12);
}

TEST_F(Replay, LevelsRoundTiesToTheEvenNumber) {
    for (const int kind : {4, 7}) {
        EXPECT_EQ(replayed(31, 17, {taskRow(kind, {"2.5"})}), replayed(31, 17, {taskRow(kind, {"2"})}));
        EXPECT_EQ(replayed(31, 17, {taskRow(kind, {"3.5"})}), replayed(31, 17, {taskRow(kind, {"4"})}));
        EXPECT_FALSE(replayed(31, 17, {taskRow(kind, {"2"})}) == unevenPicture(31, 17)) << kind;
    }
}

TEST_F(Replay, ACropOnAScaledDisplayIsConvertedAndLeavesTheBoxStretched) {
    ImageBox box = boxWith(unevenPicture(200, 100));
    const Color corner = box.PixelColor(20, 10);
    ASSERT_TRUE(replayAll(box, {taskRow(8, {"False", "10", "5", "60", "45", "100", "80"})}));
    EXPECT_EQ(box.Width(), 100);
    EXPECT_EQ(box.Height(), 80);
    EXPECT_EQ(box.PixelColor(0, 0), corner);
    EXPECT_TRUE(box.StretchToFit);
    EXPECT_EQ(box.ControlWidth, 100.0f);
    EXPECT_EQ(box.ControlHeight, 80.0f);
}

TEST_F(Replay, AWatermarkInTheCentreFollowsThePicture) {
    QTemporaryDir folder;
    const QString mark = savedPicture(folder, 6, 4, qRgb(255, 0, 0));
    for (const QSize size : {QSize(60, 40), QSize(26, 14)}) {
        const Picture marked = replayed(size.width(), size.height(), {watermarkRow(mark, "0", "9", "9")});
        EXPECT_EQ(differing(marked, unevenPicture(size.width(), size.height())),
                  QRect((size.width() - 6) / 2, (size.height() - 4) / 2, 6, 4));
    }
}

TEST_F(Replay, ATextAtTheBottomRightStandsThereOnPicturesOfAnySize) {
    for (const QSize size : {QSize(300, 200), QSize(171, 97)}) {
        const Picture written = replayed(size.width(), size.height(), {textRow("8", "3", "4")});
        const QRect ink = differing(written, unevenPicture(size.width(), size.height()));
        EXPECT_GT(ink.left(), size.width() / 4);
        EXPECT_GT(ink.top(), size.height() / 2);
        EXPECT_GT(ink.right(), size.width() - 8);
    }
}

TEST_F(Replay, AClickedTextStaysAtItsNumbersOnAnUnscaledDisplay) {
    const QRect there = differing(replayed(300, 200, {textRow("9", "50", "60")}), unevenPicture(300, 200));
    const QRect moved = differing(replayed(300, 200, {textRow("9", "60", "40")}), unevenPicture(300, 200));
    EXPECT_EQ(moved.topLeft() - there.topLeft(), QPoint(10, -20));
    EXPECT_GE(there.left(), 48);
    EXPECT_GE(there.top(), 60);
}

TEST_F(Replay, AnEmptyTextDrawsNothing) {
    TaskRow row = textRow("4");
    row.column(15).clear();
    EXPECT_EQ(replayed(40, 30, {row}), unevenPicture(40, 30));
}

TEST_F(Replay, InvertTwiceIsThePictureItself) {
    EXPECT_FALSE(replayed(5, 3, {taskRow(11, {})}) == unevenPicture(5, 3));
    EXPECT_EQ(replayed(5, 3, {taskRow(11, {}), taskRow(11, {})}), unevenPicture(5, 3));
}

TEST_F(Replay, KindsThatAreNoneArePassedOver) {
    TaskList tasks;
    for (const int kind : {0, 16, 99, -3})
        tasks.appendAsRead(taskRow(kind, {}), QStringLiteral("generic"));
    ImageBox box = boxWith(unevenPicture(5, 3));
    EXPECT_TRUE(modProcessTasks::subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_EQ(box.picture(), unevenPicture(5, 3));
}
