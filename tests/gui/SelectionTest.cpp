// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/BeforeView.h"
#include "collections/forms/ImageBoxView.h"
#include "controls/ListControl.h"
#include "tasks/forms/TaskOptionPage.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/TestPictures.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace tarsel::test {

namespace {

class Selection : public WindowTest {
protected:
    /// Opens the page of a task for a picture of four colours.
    void edit(const char* task, bool actualSize = false) {
        const Picture quarters = pictureOf(1600, 1200, 3, [](int x, int y) {
            return Rgb{std::uint8_t(x < 800 ? 20 : 220), std::uint8_t(y < 600 ? 30 : 130), 40};
        });
        QDir().mkpath(pictures());
        boxWith(quarters).SaveToFile(pictures() + QStringLiteral("/a.png"));
        start();
        listFolder(pictures());
        child<QMenu>(window(), "mnuPreviewFit").actions()[actualSize ? 1 : 0]->trigger();
        window().preview().ShowRow(listed(), 0);
        settle();
        click(window(), "CmdPreviewEdit");
        settle();
        click(window(), task);
        settle();
    }
    void settle() {
        ASSERT_TRUE(waitFor([&] { return !window().preview().isBusy() && view().isSharp(); }));
    }
    ImageBoxView& view() { return child<ImageBoxView>(window(), "PicViewImage"); }
    /// On the viewport, of a point of the display.
    QPoint at(QPoint display) { return view().placement().place().topLeft() + display; }
    void drag(QPoint from, QPoint to) {
        QTest::mousePress(view().viewport(), Qt::LeftButton, {}, at(from));
        QTest::mouseMove(view().viewport(), at((from + to) / 2));
        QTest::mouseMove(view().viewport(), at(to));
        QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, at(to));
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&view(), pressed, with); }
    void press(const char* button) { child<QAbstractButton>(window(), button).click(); }
    bool isDown(const char* button) { return child<QAbstractButton>(window(), button).isChecked(); }
    void selectRegion() {
        press("optCropSelect_0");
        press("chkCropMouse");
    }
    void preview() {
        click(window(), "cmdApply");
        settle();
    }
    QImage corner() { return view().viewport()->grab({at({2, 2}), QSize(9, 9)}).toImage(); }
    const Picture& shown() { return window().workspace().ibMain.picture(); }
    const RubberBand& band() { return view().selection().band(); }
    QRect selected() { return band().sorted(); }
};

} // namespace

TEST_F(Selection, ACropIsDraggedMovedAndSizedWithThePointerAndWithKeys) {
    for (const bool actualSize : {false, true}) {
        edit("Crop", actualSize);
        selectRegion();
        EXPECT_EQ(view().viewport()->cursor().shape(), Qt::CrossCursor);
        EXPECT_TRUE(view().hasFocus());
        drag({20, 30}, {20, 30});
        EXPECT_TRUE(isDown("chkCropMouse")) << "still to be dragged";
        drag({20, 30}, {120, 90});
        EXPECT_FALSE(isDown("chkCropMouse"));
        const QImage dimmed = corner();
        press("cmdCompare");
        ASSERT_TRUE(waitFor([&] { return child<BeforeView>(window(), "BeforeView").isSharp(); }));
        EXPECT_EQ(corner(), dimmed);
        EXPECT_EQ(child<QLabel>(window(), "lblSelectRegionEnd").text().toStdString(), "X : 120 ; Y : 90");
        drag({70, 60}, {75, 62});
        key(Qt::Key_Left);
        key(Qt::Key_Down, Qt::ShiftModifier | Qt::ControlModifier);
        EXPECT_EQ(selected(), QRect(24, 32, 100, 70));
        const double scale = 1600.0 / view().placement().drawn().width;
        const int width = int(std::nearbyint(scale * 124) - std::nearbyint(scale * 24));
        EXPECT_EQ(panel("status").find("Selection of " + std::to_string(width) + " "), 0U) << panel("status");
        preview();
        EXPECT_EQ(shown().width(), width);
        EXPECT_FALSE(band().isVisible());
        click(window(), "cmdOK");
        settle();
        click(window(), "Crop");
        selectRegion();
        drag({1, 1}, {40, 40});
        Q_EMIT child<ListControl>(window(), "lvEditPreview").rowClicked();
        settle();
        EXPECT_FALSE(band().isVisible());
        EXPECT_EQ(child<QLabel>(window(), "lblSelectRegionEnd").text().toStdString(), "X : 0 ; Y : 0");
        close();
    }
}

TEST_F(Selection, ABandStaysOnItsRegionAndIsLeftWithEscape) {
    edit("Crop", true);
    selectRegion();
    key(Qt::Key_Return);
    const QRect first = selected();
    EXPECT_NEAR(first.center().x(), view().container().width / 2, 1) << "in the middle of what is seen";
    child<QMenu>(window(), "mnuPreviewFit").actions()[0]->trigger();
    settle();
    EXPECT_NEAR(selected().width(), view().placement().drawn().width * first.width() / 1600.0, 1);
    child<QMenu>(window(), "mnuPreviewFit").actions()[1]->trigger();
    settle();
    EXPECT_EQ(selected(), first);
    const QString size = QStringLiteral("%1 × %2").arg(first.width()).arg(first.height());
    EXPECT_TRUE(view().accessibleDescription().contains(size));
    key(Qt::Key_Escape);
    EXPECT_FALSE(band().isVisible() || child<QAbstractButton>(window(), "cmdApply").isEnabled());
    selectRegion();
    QTest::mousePress(view().viewport(), Qt::LeftButton, {}, at({10, 10}));
    QTest::mouseMove(view().viewport(), at({50, 60}));
    key(Qt::Key_Minus);
    EXPECT_FALSE(view().isBestFit()) << "not while a corner is dragged";
    QTest::mouseClick(view().viewport(), Qt::RightButton, {}, at({50, 60}));
    QTest::mouseRelease(view().viewport(), Qt::LeftButton, {}, at({90, 90}));
    EXPECT_EQ(selected(), QRect(10, 10, 40, 50)) << "dragged until the menu opened";
}

TEST_F(Selection, ATextStandsWhereTheUserClickedAndFurtherWithASecondPreview) {
    edit("Text");
    press("chkLivePreview");
    child<QComboBox>(window(), "cboPosition").setCurrentIndex(9);
    press("chkSelectLocation");
    drag({30, 40}, {33, 44});
    EXPECT_EQ(child<QLabel>(window(), "lblSelectLocation").text().toStdString(), "X-33; Y-44");
    EXPECT_FALSE(isDown("chkSelectLocation"));
    const double scale = 1600.0 / view().placement().drawn().width;
    int kept = 33;
    for (const char* text : {"Tarsel", "Tarsel."}) {
        child<QLineEdit>(window(), "txtDraw").setText(QLatin1String(text));
        preview();
        kept = int(std::nearbyint(scale * kept));
        EXPECT_EQ(child<TaskOptionPage>(window(), "pageText").location().x(), kept);
    }
    press("chkSelectLocation");
    child<QComboBox>(window(), "cboPosition").setCurrentIndex(0);
    EXPECT_FALSE(isDown("chkSelectLocation"));
}

TEST_F(Selection, TheColorUnderThePointerShowsAndIsPickedOrLeft) {
    edit("Canvas");
    auto& well = child<QAbstractButton>(window(), "picCropBackColor");
    const std::string before = well.toolTip().toStdString();
    const TaskRow row = child<TaskOptionPage>(window(), "pageCanvas").row();
    press("chkCropBackColor");
    const Size drawn = view().placement().drawn();
    QTest::mouseMove(view().viewport(), at({5, 5}));
    QTest::mouseMove(view().viewport(), at({drawn.width - 1, 5}));
    QTest::mouseMove(view().viewport(), {1, 1}); // beside the picture
    EXPECT_EQ(well.toolTip().toStdString(), "#dc1e28");
    EXPECT_TRUE(child<TaskOptionPage>(window(), "pageCanvas").row() == row)
        << "a colour is not picked by the pointer alone";
    key(Qt::Key_Escape);
    EXPECT_EQ(well.toolTip().toStdString(), before);
    press("chkCropBackColor");
    click(window(), "Blur"); // which has no colour
    click(window(), "Canvas");
    EXPECT_FALSE(isDown("chkCropBackColor"));
    press("chkCropBackColor");
    drag({drawn.width - 1, drawn.height - 1}, {5, 5});
    EXPECT_EQ(well.toolTip().toStdString(), "#dc8228") << "picked by the press";
    EXPECT_FALSE(isDown("chkCropBackColor"));
}

TEST_F(Selection, ARedEyeIsCorrectedInsideItsEllipseAndNeverRecorded) {
    edit("RedEye");
    const auto& ok = child<QAbstractButton>(window(), "cmdOK");
    EXPECT_FALSE(ok.isEnabled());
    press("chkRedEye");
    EXPECT_TRUE(ok.isEnabled());
    EXPECT_TRUE(isDown("chkRedEye"));
    const Size drawn = view().placement().drawn();
    drag({drawn.width / 2, 0}, {drawn.width, drawn.height / 2});
    EXPECT_FALSE(isDown("chkRedEye"));
    preview();
    const auto red = [&](int x, int y) { return int(shown().view().pixel(x, y)[0]); };
    EXPECT_LT(red(1200, 300), 100);
    EXPECT_EQ(red(1590, 10), 220) << "outside the ellipse";
    click(window(), "cmdOK");
    settle();
    EXPECT_EQ(window().workspace().tasks.count(), 0);
    EXPECT_LT(red(1200, 300), 100);
    bool asked = false;
    script.on("messageBox", [&](QWidget& box) { asked = box.close(); });
    window().close();
    EXPECT_TRUE(waitFor([&] { return asked; }) && window().isVisible()) << "no list holds the correction";
}

} // namespace tarsel::test
