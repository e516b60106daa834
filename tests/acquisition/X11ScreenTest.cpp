// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "acquisition/X11Connection.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/ShownPicture.h"
#include "tests/support/TestPictures.h"

#include <QProcess>
#include <QStandardPaths>
#include <cstring>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// `output` is "screen", the server's only one, or "none". Its own monitor goes once that belongs to another.
void placeMonitor(const char* name, const char* place, const char* output) {
    const QStringList arguments = {QStringLiteral("--setmonitor"), QString::fromLatin1(name),
                                   QString::fromLatin1(place), QString::fromLatin1(output)};
    ASSERT_EQ(QProcess::execute(QStringLiteral("xrandr"), arguments), 0);
}

void removeMonitors() {
    for (const char* name : {"left", "right"})
        QProcess::execute(QStringLiteral("xrandr"),
                          {QStringLiteral("--delmonitor"), QString::fromLatin1(name)});
}

Picture part(const Picture& picture, const QRect& area) {
    Picture result(area.width(), area.height(), 3);
    const PixelView rows = result.edit();
    for (int y = 0; y < area.height(); ++y)
        std::memcpy(rows.row(y), picture.view().pixel(area.x(), area.y() + y), std::size_t(area.width()) * 3);
    return result;
}

class X11Screen : public testing::Test {
protected:
    void SetUp() override {
        // They divide its screen and move its pointer, which no developer wants at work.
        if (qEnvironmentVariableIsEmpty("TARSEL_PRIVATE_SCREEN"))
            GTEST_SKIP() << "needs an X server of its own: tests/support/on-screen, TARSEL_PRIVATE_SCREEN=1";
    }
};

} // namespace

TEST_F(X11Screen, APixelOfTheScreenIsAPixelOfThePictureWhereverTheMonitorsAre) {
    const X11Connection x11;
    if (x11.screen().root_depth != 24)
        GTEST_SKIP() << "needs a screen of 24 bits";
    if (QStandardPaths::findExecutable(QStringLiteral("xrandr")).isEmpty())
        GTEST_SKIP() << "needs xrandr";
    const Picture shown = noisePicture(120, 70, 3);
    const ShownPicture window(x11, shown, {250, 60});
    const int bottom = x11.screen().height_in_pixels - 70;
    const ShownPicture last(x11, shown, {250, bottom});
    const Picture whole = x11Screen()->grab(false).picture;
    EXPECT_TRUE(part(whole, {250, 60, 120, 70}) == shown);
    EXPECT_TRUE(part(whole, {250, bottom, 120, 70}) == shown);

    placeMonitor("left", "200/50x150/40+100+40", "screen");
    placeMonitor("right", "150/40x100/30+300+20", "none");
    const ScreenPicture grabbed = x11Screen()->grab(false);
    ASSERT_EQ(grabbed.monitors.size(), 2U);
    EXPECT_EQ(grabbed.monitors[0].name, QStringLiteral("left"));
    EXPECT_EQ(grabbed.monitors[0].area, QRect(0, 20, 200, 150));
    EXPECT_EQ(grabbed.monitors[1].area, QRect(200, 0, 150, 100));
    EXPECT_EQ(grabbed.picture.width(), 350);
    EXPECT_EQ(grabbed.picture.height(), 170);
    // The window is on both monitors; its last ten rows are on the left one alone.
    EXPECT_TRUE(part(grabbed.picture, {150, 40, 120, 60}) == part(shown, {0, 0, 120, 60}));
    EXPECT_TRUE(part(grabbed.picture, {150, 100, 50, 10}) == part(shown, {0, 60, 50, 10}));
    EXPECT_TRUE(part(grabbed.picture, {200, 100, 70, 10}) == plainPicture(70, 10, 3, {0, 0, 0}));
    removeMonitors();
}

TEST_F(X11Screen, ThePointerIsOnThePictureOnlyWhenWanted) {
    const X11Connection x11;
    xcb_warp_pointer(x11.get(), XCB_NONE, x11.root(), 0, 0, 0, 0, 250, 110);
    xcb_flush(x11.get());
    const auto screen = x11Screen();
    const Picture plain = screen->grab(false).picture;
    EXPECT_FALSE(screen->grab(true).picture == plain);
    EXPECT_TRUE(screen->grab(false).picture == plain);
    EXPECT_EQ(screen->grab(false).pointer, QPoint(250, 110));
}

TEST_F(X11Screen, AScreenOfEightBitsHasTheColoursOfItsPalette) {
    const X11Connection x11;
    if (x11.screen().root_depth != 8)
        GTEST_SKIP() << "needs a screen of 8 bits";
    const xcb_colormap_t colors = x11.screen().default_colormap;
    const auto color = owned(xcb_alloc_color_reply(
        x11.get(), xcb_alloc_color(x11.get(), colors, 0xC8C8, 0x6464, 0x3232), nullptr));
    ASSERT_TRUE(color);
    const xcb_window_t window = xcb_generate_id(x11.get());
    const std::uint32_t values[] = {color->pixel, 1};
    xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, window, x11.root(), 20, 30, 40, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_map_window(x11.get(), window);
    owned(xcb_get_input_focus_reply(x11.get(), xcb_get_input_focus(x11.get()), nullptr));
    const Picture whole = x11Screen()->grab(false).picture;
    EXPECT_TRUE(part(whole, {20, 30, 40, 50}) == plainPicture(40, 50, 3, {200, 100, 50}));
}

TEST_F(X11Screen, WithoutAWindowManagerTheDesktopIsNotCleared) {
    const auto screen = x11Screen();
    const ClearedDesktop cleared(*screen);
    EXPECT_FALSE(cleared.isCleared());
}

TEST(X11Connection, AServerThatIsNotThereIsNamed) {
    const QByteArray display = qgetenv("DISPLAY");
    for (const char* none : {"", ":9876"}) {
        qputenv("DISPLAY", none);
        try {
            const X11Connection connection;
            ADD_FAILURE() << none;
        } catch (const TrappedError& error) {
            EXPECT_EQ(error.number, ErrorNumber::FileNotFound);
            EXPECT_TRUE(error.description.contains(QLatin1String(none)));
            EXPECT_FALSE(error.description.contains(u"File")) << error.description.toStdString();
        }
    }
    qputenv("DISPLAY", display);
}
