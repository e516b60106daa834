// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenSource.h"
#include "acquisition/X11Connection.h"
#include "base/TrappedError.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/TestPictures.h"

#include <QProcess>
#include <QStandardPaths>
#include <cstring>
#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// A window without a frame that shows these pixels.
class ShownPicture {
public:
    ShownPicture(const X11Connection& x11, const Picture& picture, QPoint place) : m_x11(x11) {
        const std::uint32_t overrideRedirect = 1;
        m_window = xcb_generate_id(x11.get());
        xcb_create_window(x11.get(), XCB_COPY_FROM_PARENT, m_window, x11.root(), std::int16_t(place.x()),
                          std::int16_t(place.y()), std::uint16_t(picture.width()),
                          std::uint16_t(picture.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &overrideRedirect);
        xcb_map_window(x11.get(), m_window);
        const xcb_gcontext_t context = xcb_generate_id(x11.get());
        xcb_create_gc(x11.get(), context, m_window, 0, nullptr);
        std::vector<std::uint32_t> pixels;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) {
                const std::uint8_t* rgb = picture.view().pixel(x, y);
                pixels.push_back(std::uint32_t(rgb[0] << 16 | rgb[1] << 8 | rgb[2]));
            }
        xcb_put_image(x11.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, context, std::uint16_t(picture.width()),
                      std::uint16_t(picture.height()), 0, 0, 0, x11.screen().root_depth,
                      std::uint32_t(pixels.size() * 4), reinterpret_cast<const std::uint8_t*>(pixels.data()));
        xcb_free_gc(x11.get(), context);
        settle();
    }
    ~ShownPicture() {
        xcb_destroy_window(m_x11.get(), m_window);
        settle();
    }
    ShownPicture(const ShownPicture&) = delete;
    ShownPicture& operator=(const ShownPicture&) = delete;

private:
    /// Until the server has done everything asked of it.
    void settle() const {
        owned(xcb_get_input_focus_reply(m_x11.get(), xcb_get_input_focus(m_x11.get()), nullptr));
    }

    const X11Connection& m_x11;
    xcb_window_t m_window;
};

/// `output` is "screen", the server's only one, or "none". Its own monitor goes once that belongs to another.
void placeMonitor(const char* name, const char* place, const char* output) {
    const QStringList arguments = {QStringLiteral("--setmonitor"), QString::fromLatin1(name),
                                   QString::fromLatin1(place), QString::fromLatin1(output)};
    ASSERT_EQ(QProcess::execute(QStringLiteral("xrandr"), arguments), 0);
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
        if (qEnvironmentVariableIsEmpty("DISPLAY"))
            GTEST_SKIP() << "needs an X server";
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
    EXPECT_TRUE(part(x11Screen()->grab(false).picture, {250, 60, 120, 70}) == shown);

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
}

TEST_F(X11Screen, ThePointerIsOnThePictureOnlyWhenWanted) {
    const X11Connection x11;
    xcb_warp_pointer(x11.get(), XCB_NONE, x11.root(), 0, 0, 0, 0, 250, 110);
    xcb_flush(x11.get());
    const auto screen = x11Screen();
    const Picture plain = screen->grab(false).picture;
    EXPECT_FALSE(screen->grab(true).picture == plain);
    EXPECT_TRUE(screen->grab(false).picture == plain);
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
        }
    }
    qputenv("DISPLAY", display);
}
