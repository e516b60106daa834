// SPDX-License-Identifier: GPL-3.0-or-later
// Real drags: the pointer is moved on a screen of its own (Xvfb) by xdotool, past all that a test could
// imitate.
#include "controls/ListControl.h"
#include "tests/gui/WindowTest.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QProcess>

namespace tarsel::test {

namespace {

class Drag : public WindowTest {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            GTEST_SKIP() << "needs a screen: QT_QPA_PLATFORM=xcb";
    }

    QPoint placeOf(const char* list, int row) {
        const QAbstractItemView* view = child<ListControl>(window(), list).view();
        const QRect place = view->visualRect(view->model()->index(row, 0));
        return view->viewport()->mapToGlobal(row < 0 ? view->viewport()->rect().center() : place.center());
    }

    /// Presses at one place, moves in steps to the other and releases, in the middle of `until` becoming
    /// true.
    static bool drag(QPoint from, QPoint to, const std::function<bool()>& until) {
        QStringList moves;
        const auto moveTo = [&](QPoint at) {
            moves << QStringLiteral("mousemove") << QString::number(at.x()) << QString::number(at.y())
                  << QStringLiteral("sleep") << QStringLiteral("0.05");
        };
        constexpr int steps = 8;
        moveTo(from);
        moves << QStringLiteral("mousedown") << QStringLiteral("1");
        for (int i = 1; i <= steps; ++i)
            moveTo(from + (to - from) * i / steps);
        moveTo(to);
        moves << QStringLiteral("mouseup") << QStringLiteral("1");
        QProcess pointer;
        pointer.start(QStringLiteral("xdotool"), moves);
        return waitFor(until);
    }
};

TEST_F(Drag, PicturesGoIntoTheBasketAndChangeTheirPlaceThere) {
    startListing(3);
    EXPECT_TRUE(drag(placeOf("lvFolder", 1), placeOf("lvPages", -1), [&] { return basket().count() == 1; }));
    EXPECT_EQ(texts(basket()), "photo02");
    selectAllOf("lvFolder");
    EXPECT_TRUE(drag(placeOf("lvFolder", 2), placeOf("lvPages", -1), [&] { return basket().count() == 3; }));
    const std::string before = texts(basket());
    EXPECT_TRUE(
        drag(placeOf("lvPages", 2), placeOf("lvPages", 0), [&] { return texts(basket()) != before; }));
    EXPECT_EQ(basket().count(), 3) << texts(basket());
    EXPECT_EQ(listed().count(), 3);
}

} // namespace

} // namespace tarsel::test
