// SPDX-License-Identifier: GPL-3.0-or-later
// The frozen screen, on as many monitors as the platform has: it is run on several of different scales.
#include "acquisition/forms/CapturePane.h"
#include "acquisition/forms/fCaptureRectangle.h"
#include "imaging/PictureParts.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestPictures.h"
#include "tests/support/TextRecorder.h"

#include <QApplication>
#include <QEnterEvent>
#include <QFrame>
#include <QLabel>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

namespace tarsel::test {

namespace {

/// Says where it is from.
Rgb colorOf(int x, int y) {
    return {std::uint8_t(x), std::uint8_t(y), std::uint8_t((x >> 8) << 4 | y >> 8)};
}

/// The screens of the platform side by side in one picture, `scale` pixels a unit; without it as many as each
/// screen has.
ScreenPicture pictureOfScreens(double scale = 0) {
    std::vector<Monitor> monitors;
    QSize size(0, 0);
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QSizeF pixels = QSizeF(screen->size()) * (scale > 0 ? scale : screen->devicePixelRatio());
        monitors.push_back(
            {{QPoint(size.width(), 30 * int(monitors.size())), pixels.toSize()}, screen->name()});
        size = {monitors.back().area.right() + 1, std::max(size.height(), monitors.back().area.bottom() + 1)};
    }
    return {pictureOf(size.width(), size.height(), 3, colorOf), std::move(monitors)};
}

class CaptureRegion : public testing::Test {
protected:
    CaptureRegion() {
        QObject::connect(&rectangle, &fCaptureRectangle::taken,
                         [this](const Picture& picture) { taken = picture; });
        QObject::connect(&rectangle, &fCaptureRectangle::left, [this] { ++lefts; });
        show(pictureOfScreens());
    }
    ~CaptureRegion() override { rectangle.hide(); }

    void show(const ScreenPicture& picture) {
        screen = picture;
        rectangle.ShowPicture(picture);
        panes.clear();
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* pane = qobject_cast<CapturePane*>(window); pane && pane->isVisible())
                panes.push_back(pane);
        std::ranges::sort(panes, {}, [](const CapturePane* pane) { return pane->area().left(); });
        ASSERT_EQ(panes.size(), screen.monitors.size());
        for (CapturePane* each : panes)
            ASSERT_TRUE(QTest::qWaitForWindowExposed(each));
    }

    /// Sends a pane what the pointer does in the middle of a pixel of its monitor, or beyond it.
    void point(std::size_t pane, QEvent::Type type, QPoint pixel, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers with = {}) {
        const QRect area = screen.monitors[pane].area;
        const double ratio = double(area.width()) / panes[pane]->screen()->size().width();
        const QPointF at = (QPointF(pixel) + QPointF(0.5, 0.5)) / ratio;
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(type, at, panes[pane]->mapToGlobal(at), isMove ? Qt::NoButton : button,
                          isMove ? Qt::MouseButtons() : button, with);
        QApplication::sendEvent(panes[pane], &event);
    }
    /// From pixel to pixel of a monitor.
    void drag(std::size_t pane, QPoint from, QPoint to, Qt::KeyboardModifiers with = {}) {
        point(pane, QEvent::MouseButtonPress, from);
        point(pane, QEvent::MouseMove, (from + to) / 2, {}, with);
        point(pane, QEvent::MouseMove, to, {}, with);
        point(pane, QEvent::MouseButtonRelease, to);
    }
    void click(std::size_t pane, QPoint pixel, Qt::MouseButton button) {
        point(pane, QEvent::MouseButtonPress, pixel, button);
        point(pane, QEvent::MouseButtonRelease, pixel, button);
    }
    void doubleClick(std::size_t pane, QPoint pixel) {
        click(pane, pixel, Qt::LeftButton);
        point(pane, QEvent::MouseButtonDblClick, pixel);
        point(pane, QEvent::MouseButtonRelease, pixel);
    }
    void key(int pressed, Qt::KeyboardModifiers with = {}, std::size_t pane = 0) {
        QTest::keyClick(panes[pane], Qt::Key(pressed), with);
    }
    /// Whether exactly these pixels are taken, counted from a monitor's corner.
    ::testing::AssertionResult takes(std::size_t pane, const QRect& area) {
        key(Qt::Key_Return);
        const QRect wanted = area.translated(screen.monitors[pane].area.topLeft());
        const Picture part =
            partOf(screen.picture, wanted.x(), wanted.y(), {wanted.width(), wanted.height()});
        if (taken == part)
            return ::testing::AssertionSuccess();
        const std::uint8_t* corner = taken.view().pixel(0, 0);
        return ::testing::AssertionFailure()
               << taken.width() << " x " << taken.height() << " from " << int(corner[0]) << ", "
               << int(corner[1]) << " (the low bytes), wanted " << wanted.width() << " x " << wanted.height()
               << " from " << (wanted.x() & 255) << ", " << (wanted.y() & 255);
    }
    QRect wholeOf(std::size_t pane) const { return {{}, screen.monitors[pane].area.size()}; }
    /// The colour of a pixel of the monitor, as it is seen.
    QColor seen(std::size_t pane, QPoint pixel) {
        const QImage image = panes[pane]->grab().toImage();
        return image.pixelColor(pixel);
    }
    QToolButton& bar(int index) {
        for (CapturePane* pane : panes)
            if (auto* button = pane->findChild<QToolButton*>(QStringLiteral("cmdBar_%1").arg(index)))
                return *button;
        throw std::runtime_error("no bar");
    }

    ScreenPicture screen;
    fCaptureRectangle rectangle;
    std::vector<CapturePane*> panes; ///< of the monitors in their order
    Picture taken;
    int lefts = 0;
};

} // namespace

TEST_F(CaptureRegion, EveryGripChangesItsSidesOnEveryMonitor) {
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        drag(pane, {301, 203}, {100, 101}); // upwards and to the left
        EXPECT_TRUE(takes(pane, {100, 101, 202, 103})) << pane;
        const struct {
            QPoint from, to;
            QRect after;
        } steps[] = {
            {{200, 150}, {221, 157}, {121, 108, 202, 103}}, // inside: moves it
            {{121, 150}, {111, 171}, {111, 108, 212, 103}}, // the sides
            {{322, 150}, {330, 120}, {111, 108, 220, 103}},
            {{200, 108}, {240, 95}, {111, 95, 220, 116}},
            {{200, 210}, {100, 215}, {111, 95, 220, 121}},
            {{111, 95}, {101, 91}, {101, 91, 230, 125}}, // the corners
            {{330, 91}, {340, 99}, {101, 99, 240, 117}},
            {{101, 215}, {110, 225}, {110, 99, 231, 127}},
            {{340, 225}, {349, 249}, {110, 99, 240, 151}},
            {{349, 249}, {90, 80}, {90, 80, 21, 20}}, // beyond the other corner
        };
        for (const auto& [from, to, after] : steps) {
            drag(pane, from, to);
            EXPECT_TRUE(takes(pane, after)) << pane << ": " << from.x() << ", " << from.y();
        }
        drag(pane, {200, 200}, {219, 280}, Qt::ShiftModifier);
        EXPECT_TRUE(takes(pane, {200, 200, 81, 81})) << "square";
        key(Qt::Key_Escape);
    }
}

TEST_F(CaptureRegion, ADragGoesOnOverTheOtherMonitors) {
    const QRect first = screen.monitors[0].area;
    const QPoint far(screen.picture.width() - 1, first.height() - 1);
    drag(0, {20, 40}, far);
    EXPECT_TRUE(takes(0, {QPoint(20, 40), far}));
    drag(0, {-1, 0}, {30, 400}); // outside of all, where nothing can be held
    EXPECT_TRUE(takes(0, {QPoint(0, 0), QPoint(30, 400)}));
}

TEST_F(CaptureRegion, KeysMoveResizeAndTakeIt) {
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        point(pane, QEvent::MouseMove, {5, 5});
        EXPECT_TRUE(takes(pane, wholeOf(pane))) << "the pointer's monitor";
        drag(pane, {100, 100}, {149, 129});
        key(Qt::Key_Left, {}, pane);
        key(Qt::Key_Down, Qt::ControlModifier, pane);
        EXPECT_TRUE(takes(pane, {99, 110, 50, 30}));
        key(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier, pane);
        key(Qt::Key_Up, Qt::ShiftModifier, pane);
        key(Qt::Key_Right, {}, pane);
        EXPECT_TRUE(takes(pane, {100, 110, 60, 29}));
        key(Qt::Key_Escape, {}, pane);
        key(Qt::Key_Right, Qt::ShiftModifier | Qt::ControlModifier, pane);
        key(Qt::Key_Left, Qt::ShiftModifier | Qt::ControlModifier, pane);
        taken = {};
        key(Qt::Key_Enter, {}, pane);
        EXPECT_GE(taken.width(), wholeOf(pane).width() - 10) << "keys begin with the monitor";
        key(Qt::Key_Escape, {}, pane);
    }
    EXPECT_EQ(lefts, 0);
}

TEST_F(CaptureRegion, EscapeAndTheRightButtonTakeBackStepByStepAndCloseLeaves) {
    const std::size_t pane = panes.size() - 1;
    const std::function<void()> ways[] = {[&] { key(Qt::Key_Escape, {}, pane); },
                                          [&] {
                                              click(pane, {5, 5}, Qt::RightButton);
                                          }};
    for (const auto& back : ways) {
        lefts = 0;
        drag(pane, {50, 60}, {79, 89});
        point(pane, QEvent::MouseButtonPress, {200, 200});
        point(pane, QEvent::MouseMove, {250, 260});
        back();
        point(pane, QEvent::MouseMove, {280, 290});
        point(pane, QEvent::MouseButtonRelease, {280, 290});
        EXPECT_TRUE(takes(pane, {50, 60, 30, 30})) << "the drag alone";
        back();
        EXPECT_EQ(lefts, 0);
        EXPECT_TRUE(takes(pane, wholeOf(pane)));
        back();
        EXPECT_EQ(lefts, 1);
    }
    panes[0]->close();
    EXPECT_EQ(lefts, 2);
    EXPECT_TRUE(panes[0]->isVisible()) << "all of them go together, by their owner";
}

TEST_F(CaptureRegion, TheMonitorOfThePointerIsMeantUpToItsLastPixel) {
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        ScreenPicture picture = pictureOfScreens();
        picture.pointer = picture.monitors[pane].area.bottomRight();
        show(picture);
        EXPECT_TRUE(takes(pane, wholeOf(pane)));
    }
}

TEST_F(CaptureRegion, ReturnPressesTheButtonOfTheBarThatHasTheFocus) {
    const bool hadMagnifier = bar(1).isChecked();
    for (const int button : {1, 3}) {
        bar(button).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&bar(button), Qt::Key_Return);
    }
    EXPECT_NE(bar(1).isChecked(), hadMagnifier);
    EXPECT_EQ(lefts, 1);
    EXPECT_TRUE(taken.isNull());
}

TEST_F(CaptureRegion, ADoubleClickTakesTheRectangleOrTheMonitorAndBesideItNothing) {
    const std::size_t pane = panes.size() - 1;
    doubleClick(pane, {40, 40});
    EXPECT_EQ(taken.width(), wholeOf(pane).width());
    drag(pane, {50, 60}, {79, 89});
    taken = {};
    doubleClick(pane, {200, 200});
    EXPECT_TRUE(taken.isNull());
    doubleClick(pane, {65, 75});
    EXPECT_EQ(taken.width(), 30);
}

TEST_F(CaptureRegion, TheChosenPixelsAreSeenAsTheyAreAndTheOthersDark) {
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        key(Qt::Key_M);
        drag(pane, {60, 150}, {399, 349});
        const QPoint corner = screen.monitors[pane].area.topLeft();
        const QImage image = panes[pane]->grab().toImage();
        for (int y = 170; y < 330; ++y)
            for (int x = 80; x < 380; ++x) {
                const Rgb is = colorOf(corner.x() + x, corner.y() + y);
                ASSERT_EQ(image.pixelColor(x, y), QColor(is.red, is.green, is.blue)) << x << ", " << y;
            }
        const Rgb bright = colorOf(corner.x() + 250, corner.y() + 380);
        EXPECT_LT(seen(pane, {250, 380}).red(), bright.red);
        key(Qt::Key_Escape);
        key(Qt::Key_M);
    }
}

TEST_F(CaptureRegion, TheMagnifierShowsThePixelItsPlaceAndColorAndTheLabelTheSize) {
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        const QRect area = screen.monitors[pane].area;
        for (const QPoint pixel : {QPoint(61, 115), wholeOf(pane).bottomRight(), QPoint(122, 230)}) {
            point(pane, QEvent::MouseMove, pixel);
            const QPoint at = area.topLeft() + pixel;
            const Rgb is = colorOf(at.x(), at.y());
            const QColor color(is.red, is.green, is.blue);
            const QString text =
                QStringLiteral("%1, %2   %3").arg(at.x()).arg(at.y()).arg(color.name().toUpper());
            EXPECT_EQ(textsOn(*panes[pane]), QStringList(text));
            // A square of the colour, eight units wide, is seen beside the pointer.
            const QImage image = panes[pane]->grab().toImage();
            const int side = int(6 * image.devicePixelRatio());
            int longest = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0, run = 0; x < image.width(); ++x) {
                    run = image.pixelColor(x, y) == color ? run + 1 : 0;
                    longest = std::max(longest, run);
                }
            EXPECT_GE(longest, side);
        }
        key(Qt::Key_M, {}, pane);
        EXPECT_EQ(textsOn(*panes[pane]), QStringList());
        drag(pane, {100, 100}, {149, 129});
        EXPECT_EQ(textsOn(*panes[pane]), QStringList(QStringLiteral("50 × 30")));
        key(Qt::Key_Escape, {}, pane);
        key(Qt::Key_M, {}, pane);
    }
}

TEST_F(CaptureRegion, TheMagnifierIsThereFromTheStartAndFollowsTheCornerThatKeysMove) {
    const auto texts = [this] {
        QStringList all;
        for (CapturePane* pane : panes)
            all += textsOn(*pane);
        return all.filter(QStringLiteral("#")); // those with a colour
    };
    const auto isAt = [&](QPoint place) {
        return texts().size() == 1 &&
               texts().first().startsWith(QStringLiteral("%1, %2 ").arg(place.x()).arg(place.y()));
    };
    EXPECT_EQ(texts().size(), 1);
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        const QPoint corner = screen.monitors[pane].area.topLeft();
        drag(pane, {60, 70}, {159, 189});
        key(Qt::Key_Right, {}, pane);
        EXPECT_TRUE(isAt(corner + QPoint(61, 70)));
        key(Qt::Key_Down, Qt::ShiftModifier | Qt::ControlModifier, pane);
        EXPECT_TRUE(isAt(corner + QPoint(160, 199)));
        point(pane, QEvent::MouseMove, {300, 310});
        EXPECT_TRUE(isAt(corner + QPoint(300, 310)));
        key(Qt::Key_Escape, {}, pane);
    }
}

TEST_F(CaptureRegion, F1ShowsTheKeysOnTheFrozenScreenAndTheBarTellsWhatIsShown) {
    const std::size_t last = panes.size() - 1;
    auto& keys = child<QLabel>(*bar(0).window(), "lblKeys");
    auto& button = child<QToolButton>(*bar(0).window(), "cmdKeys");
    const auto isShown = [&](bool shown) {
        const QWidget& frame = *bar(0).parentWidget();
        return keys.isVisible() == shown && button.isChecked() == shown &&
               frame.parentWidget()->rect().contains(frame.geometry()) &&
               (!shown || frame.rect().contains(keys.geometry()));
    };
    for (const bool below : {false, true}) {
        EXPECT_TRUE(isShown(false)) << below;
        key(Qt::Key_F1, {}, last);
        EXPECT_TRUE(isShown(true)) << below;
        button.click();
        key(Qt::Key_V, {}, last);
    }
    key(Qt::Key_M, {}, last);
    EXPECT_FALSE(bar(1).isChecked());
    bar(1).click();
    EXPECT_TRUE(bar(1).isChecked());
    EXPECT_EQ(lefts, 0);
}

TEST_F(CaptureRegion, WhatThePointerLeavesBehindIsPaintedAnew) {
    if (std::ranges::any_of(panes, [](const CapturePane* pane) { return pane->devicePixelRatioF() != 1; }))
        GTEST_SKIP() << "this platform shows windows of other ratios at 1";
    for (std::size_t pane = 0; pane < panes.size(); ++pane) {
        const auto isPainted = [&]() -> ::testing::AssertionResult {
            QCoreApplication::processEvents();
            CapturePane& widget = *panes[pane];
            const QImage whole = widget.grab().toImage();
            const QImage shown = widget.screen()->grabWindow(widget.winId()).toImage();
            if (shown.size() != whole.size())
                return ::testing::AssertionFailure() << "sizes " << shown.width() << ", " << whole.width();
            for (int y = 0; y < whole.height(); ++y)
                for (int x = 0; x < whole.width(); ++x)
                    if (shown.pixel(x, y) != whole.pixel(x, y))
                        return ::testing::AssertionFailure() << "at " << x << ", " << y;
            return ::testing::AssertionSuccess();
        };
        point(pane, QEvent::MouseMove, {30, 30});
        EXPECT_TRUE(isPainted());
        point(pane, QEvent::MouseButtonPress, {101, 120});
        for (const QPoint pixel : {QPoint(140, 160), QPoint(333, 301), QPoint(300, 280), QPoint(90, 100)}) {
            point(pane, QEvent::MouseMove, pixel);
            EXPECT_TRUE(isPainted()) << pixel.x();
        }
        point(pane, QEvent::MouseButtonRelease, {90, 100});
        EXPECT_TRUE(isPainted());
        key(Qt::Key_Right, Qt::ControlModifier);
        key(Qt::Key_M);
        EXPECT_TRUE(isPainted());
        key(Qt::Key_Escape);
        key(Qt::Key_M);
        EXPECT_TRUE(isPainted());
    }
}

TEST_F(CaptureRegion, TheBarTakesTogglesMovesAndLeaves) {
    const std::size_t last = panes.size() - 1;
    point(last, QEvent::MouseMove, {70, 70});
    bar(0).click();
    EXPECT_EQ(taken.width(), wholeOf(last).width());
    bar(1).click();
    EXPECT_EQ(textsOn(*panes[last]), QStringList());
    bar(1).click();
    EXPECT_EQ(textsOn(*panes[last]).size(), 1);
    const QWidget* frame = bar(2).parentWidget();
    EXPECT_EQ(frame->objectName(), QStringLiteral("Toolbar1"));
    const auto toEdge = [&] {
        const QRect room = frame->parentWidget()->rect(), place = frame->geometry();
        EXPECT_TRUE(room.contains(place));
        return std::pair(place.top() - room.top(), room.bottom() - place.bottom());
    };
    EXPECT_LT(toEdge().first, toEdge().second);
    bar(2).click();
    EXPECT_GT(toEdge().first, toEdge().second);
    key(Qt::Key_V, {}, last);
    EXPECT_LT(toEdge().first, toEdge().second);
    bar(3).click();
    EXPECT_EQ(lefts, 1);
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(bar(index).shortcut(), QKeySequence::mnemonic(bar(index).text())) << index;
}

TEST_F(CaptureRegion, APictureOfAnotherScaleFillsItsMonitors) {
    for (const double scale : {1.0, 1.6, 3.0}) {
        show(pictureOfScreens(scale));
        for (std::size_t pane = 0; pane < panes.size(); ++pane) {
            EXPECT_TRUE(wholeOf(pane).size() == screen.monitors[pane].area.size());
            drag(pane, {33, 51}, {wholeOf(pane).width() - 1, 300});
            EXPECT_TRUE(takes(pane, {QPoint(33, 51), QPoint(wholeOf(pane).width() - 1, 300)})) << scale;
            const QImage image = panes[pane]->grab().toImage();
            const double ratio = double(image.width()) / wholeOf(pane).width();
            const QPoint at(300, 200);
            const Rgb is =
                colorOf(screen.monitors[pane].area.x() + at.x(), screen.monitors[pane].area.y() + at.y());
            const QColor color = image.pixelColor(((QPointF(at) + QPointF(0.5, 0.5)) * ratio).toPoint());
            EXPECT_NEAR(color.red(), is.red, 4) << scale;
            EXPECT_NEAR(color.green(), is.green, 4) << scale;
        }
    }
}

TEST_F(CaptureRegion, MonitorsWithoutNamesAreFoundByTheirPlace) {
    ScreenPicture unnamed;
    QRect all;
    for (const QScreen* each : QGuiApplication::screens()) {
        const QRect area(each->geometry().topLeft(),
                         (QSizeF(each->size()) * each->devicePixelRatio()).toSize());
        unnamed.monitors.push_back({area, {}});
        all |= area;
    }
    for (Monitor& monitor : unnamed.monitors)
        monitor.area.translate(-all.topLeft());
    unnamed.picture = pictureOf(all.width(), all.height(), 3, colorOf);
    show(unnamed);
    std::vector<QRect> covered, wanted;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        covered.push_back(panes[i]->area());
        wanted.push_back(unnamed.monitors[i].area);
        EXPECT_NEAR(panes[i]->area().width(),
                    panes[i]->screen()->size().width() * panes[i]->devicePixelRatioF(), 1);
    }
    EXPECT_TRUE(std::ranges::is_permutation(covered, wanted));
}

} // namespace tarsel::test
