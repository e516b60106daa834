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

TEST_F(Replay, ACropOnAScaledDisplayLeavesTheBoxStretched) {
    ImageBox box = boxWith(unevenPicture(200, 100));
    ASSERT_TRUE(replayAll(box, {taskRow(8, {"False", "10", "5", "60", "45", "100", "80"})}));
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

TEST_F(Replay, AnEmptyTextAndUnknownKindsChangeNothing) {
    TaskRow row = textRow("4");
    row.column(15).clear();
    EXPECT_EQ(replayed(40, 30, {row}), unevenPicture(40, 30));
    TaskList tasks;
    for (const int kind : {0, 16, 99, -3})
        tasks.appendAsRead(taskRow(kind, {}), QStringLiteral("generic"));
    ImageBox box = boxWith(unevenPicture(5, 3));
    EXPECT_FALSE(modProcessTasks::subProcessPages(tasks.lvEdit, tasks.lvEditBatch, box, nullptr, true));
    EXPECT_EQ(box.picture(), unevenPicture(5, 3));
}
