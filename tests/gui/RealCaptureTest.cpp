// SPDX-License-Identifier: GPL-3.0-or-later
// Captures of a real screen (Xvfb) under a window manager, with windows of another client. They are run at
// several scales of the program.
#include "acquisition/ScreenSource.h"
#include "acquisition/forms/CapturePane.h"
#include "base/AcquiredFiles.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigRecord.h"
#include "imaging/PictureParts.h"
#include "tests/gui/WindowTest.h"
#include "tests/support/Boxes.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ShownPicture.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QMenu>
#include <QProcess>
#include <QRadioButton>
#include <QStandardPaths>
#include <QTest>
#include <optional>

namespace tarsel::test {

namespace {

class RealCapture : public WindowTest {
protected:
    void SetUp() override {
        if (QGuiApplication::platformName() != QLatin1String("xcb"))
            GTEST_SKIP() << "needs a screen: QT_QPA_PLATFORM=xcb";
        if (QStandardPaths::findExecutable(QStringLiteral("openbox")).isEmpty())
            GTEST_SKIP() << "needs a window manager: openbox";
        manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        ASSERT_TRUE(waitFor([this] { return isManaging(); }));
        start();
        ConfigRecord.CaptureFolder = path("captured") + QLatin1Char('/');
        QDir().mkpath(path("captured"));
    }
    void TearDown() override {
        manager.terminate();
        manager.waitForFinished();
    }

    /// The last thing that a window manager does as it starts is to tell the windows that it has found.
    bool isManaging() const {
        const auto reply = owned(xcb_get_property_reply(
            x11().get(),
            xcb_get_property(x11().get(), 0, x11().root(), x11().atom("_NET_CLIENT_LIST_STACKING"),
                             XCB_GET_PROPERTY_TYPE_ANY, 0, 0),
            nullptr));
        return reply && reply->type != XCB_ATOM_NONE;
    }
    /// Opens the dialog and answers it.
    void capture(CaptureKind kind, const char* button) {
        script.on("frmCapture", [=](QWidget& dialog) {
            child<QRadioButton>(dialog, QByteArray("optCapture_" + QByteArray::number(int(kind))).constData())
                .click();
            click(dialog, button);
        });
        window().activateWindow();
        ASSERT_TRUE(waitFor([this] { return window().isActiveWindow(); }));
        QTest::keyClick(&window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    }
    /// The picture in the file of the last row of the basket, once there are so many.
    Picture capturedAs(int row) {
        EXPECT_TRUE(waitFor([&] { return basket().count() == row && !window().preview().isBusy(); }));
        const QString file = basket().row(row - 1).tag;
        EXPECT_EQ(window().preview().shownPath().toStdString(), file.toStdString());
        return loaded(file).picture();
    }
    static Picture partAt(const Picture& picture, QPoint place, const Picture& other) {
        return partOf(picture, place.x(), place.y(), {other.width(), other.height()});
    }
    static void xdotool(const QString& arguments) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xdotool"), arguments.split(u' ')), 0);
    }
    static void xrandr(const char* arguments) {
        EXPECT_EQ(QProcess::execute(QStringLiteral("xrandr"), QString::fromLatin1(arguments).split(u' ')), 0);
    }
    static CapturePane* frozenScreen() {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* pane = qobject_cast<CapturePane*>(each); pane && pane->isVisible())
                return pane;
        return nullptr;
    }
    /// To the server: a window that its manager has minimised is visible to Qt.
    bool isOnScreen(const QWidget& widget) const {
        const auto reply = owned(xcb_get_window_attributes_reply(
            x11().get(), xcb_get_window_attributes(x11().get(), xcb_window_t(widget.winId())), nullptr));
        return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    }
    /// The window is in its frame, where Qt thinks that it is: the window manager has nothing left to do.
    bool isSettled() {
        const auto reply = owned(xcb_translate_coordinates_reply(
            x11().get(),
            xcb_translate_coordinates(x11().get(), xcb_window_t(window().winId()), x11().root(), 0, 0),
            nullptr));
        const QPointF place = QPointF(window().geometry().topLeft()) * window().devicePixelRatioF();
        return reply && (place - QPointF(reply->dst_x, reply->dst_y)).manhattanLength() < 2 &&
               isOnScreen(window()) && window().frameGeometry() != window().geometry() &&
               window().isActiveWindow();
    }
    static bool waitForManaged(const ShownPicture& shown) {
        return waitFor([&] { return shown.isShown() && shown.place() != QPoint(); });
    }
    QStringList files() const { return QDir(path("captured")).entryList(QDir::Files); }

    /// Only where there is a screen.
    const X11Connection& x11() const {
        if (!m_x11)
            m_x11.emplace();
        return *m_x11;
    }
    mutable std::optional<X11Connection> m_x11;
    QProcess manager;
    const Picture card = noisePicture(203, 151, 3, 7);
    const QPoint above{431, 300};
};

} // namespace

TEST_F(RealCapture, EachKindHasThePixelsOfTheScreenAndTheWindowIsBackAsItWas) {
    const Picture black = plainPicture(card.width(), card.height(), 3, {});
    int captures = 0;
    for (const bool maximised : {false, true}) {
        maximised ? window().showMaximized() : window().showNormal();
        const ShownPicture managed(x11(), card, {900, 700}, ShownPicture::Kind::Managed);
        ASSERT_TRUE(waitForManaged(managed));
        const ShownPicture fixed(x11(), card, above);
        window().raise();
        window().activateWindow();
        ASSERT_TRUE(waitFor([&] { return window().isMaximized() == maximised && isSettled(); }));
        const QPoint below = managed.place();
        const QRect geometry = window().geometry();
        for (const CaptureKind kind :
             {CaptureKind::Desktop, CaptureKind::Foreground, CaptureKind::Background}) {
            capture(kind, "cmdCapture");
            const Picture taken = capturedAs(++captures);
            EXPECT_EQ(std::pair(taken.width(), taken.height()), std::pair(1400, 1000));
            EXPECT_TRUE(partAt(taken, above, card) == card) << int(kind);
            if (kind == CaptureKind::Desktop) {
                EXPECT_TRUE(partAt(taken, below, card) == black) << "cleared of windows";
            }
            if (kind == CaptureKind::Background) {
                EXPECT_TRUE(partAt(taken, below, card) == card);
            }
            if (kind == CaptureKind::Foreground && maximised) {
                EXPECT_FALSE(partAt(taken, below, card) == card) << "below the window";
            }
            EXPECT_TRUE(waitFor([&] { return isSettled() && window().geometry() == geometry; }))
                << int(kind) << ": " << window().x() << ", " << window().y();
            EXPECT_EQ(window().isMaximized(), maximised);
            EXPECT_TRUE(waitFor([&] { return managed.isShown(); })) << "other windows are back too";
        }
    }
}

TEST_F(RealCapture, OtherWindowsOfTheProgramAreNotOnThePictureAndBackAboveEachOtherAsTheyWere) {
    window().setGeometry(4, 40, 1390, 940); // no window manager would choose this place
    ASSERT_TRUE(waitFor([this] { return window().isActiveWindow(); }));
    QDialog first(&window()), second(&window());
    first.setGeometry(200, 300, 300, 200);
    second.setGeometry(300, 350, 300, 200);
    const ShownPicture managed(x11(), card, {320, 380}, ShownPicture::Kind::Managed);
    ASSERT_TRUE(waitForManaged(managed));
    for (QDialog* dialog : {&second, &first}) { // against the order in which they were made
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    }
    window().activateWindow();
    ASSERT_TRUE(waitFor([this] { return isSettled(); }));
    const auto facts = [&] {
        std::vector<std::pair<WId, QRect>> all;
        for (const std::uint32_t id : x11().rootProperty("_NET_CLIENT_LIST_STACKING"))
            for (const QWidget* each : {static_cast<QWidget*>(&window()), static_cast<QWidget*>(&first),
                                        static_cast<QWidget*>(&second)})
                if (each->internalWinId() == id && isOnScreen(*each))
                    all.emplace_back(id, each->geometry()); // Qt learns of a frame late
        return all;
    };
    ASSERT_TRUE(waitFor([&] { return facts().size() == 3; }));
    const auto before = facts();
    EXPECT_EQ(before[1].first, second.winId());
    capture(CaptureKind::Background, "cmdCapture");
    const Picture taken = capturedAs(1);
    EXPECT_TRUE(partAt(taken, managed.place(), card) == card);
    EXPECT_TRUE(waitFor([&] { return isSettled() && facts() == before; }));
}

TEST_F(RealCapture, ARegionHasThePixelsBetweenTheEndsOfTheDragAlsoOverTwoMonitors) {
    window().showMaximized();
    const ShownPicture managed(x11(), card, {900, 700}, ShownPicture::Kind::Managed);
    ASSERT_TRUE(waitForManaged(managed));
    int captures = 0;
    for (const bool twoMonitors : {false, true}) {
        if (twoMonitors) { // one output, divided at a column of the card
            xrandr("--setmonitor left 500/150x1000/300+0+0 screen");
            xrandr("--setmonitor right 900/250x1000/300+500+0 none");
        }
        for (const CaptureKind kind : {CaptureKind::Foreground, CaptureKind::Desktop}) {
            auto fixed = std::make_unique<ShownPicture>(x11(), card, above);
            capture(kind, "CmdCustom");
            ASSERT_TRUE(
                waitFor([] { return qobject_cast<CapturePane*>(QApplication::activeWindow()) != nullptr; }));
            fixed.reset(); // the frozen screen still shows it
            const QPoint from = above + QPoint(13, 21), to = above + QPoint(180, 115);
            xdotool(
                QStringLiteral("mousemove %1 %2 mousedown 1 mousemove %3 %4 sleep 0.1 mouseup 1 key Return")
                    .arg(from.x())
                    .arg(from.y())
                    .arg(to.x())
                    .arg(to.y()));
            EXPECT_TRUE(capturedAs(++captures) == partOf(card, 13, 21, {168, 95})) << twoMonitors;
            EXPECT_TRUE(waitFor([&] { return managed.isShown() && isOnScreen(window()); }));
            EXPECT_TRUE(window().isMaximized());
        }
    }
    xrandr("--delmonitor left");
    xrandr("--delmonitor right");
}

TEST_F(RealCapture, AChangeOfTheMonitorBeforeThePictureShowsOnItAndAfterwardsLeavesTheFrozenScreen) {
    xrandr("--newmode small 40 800 840 968 1056 600 601 605 628");
    xrandr("--addmode screen small");
    capture(CaptureKind::Background, "cmdCapture");
    xrandr("--output screen --mode small");
    EXPECT_EQ(capturedAs(1).width(), 800);
    capture(CaptureKind::Background, "CmdCustom");
    ASSERT_TRUE(waitFor([] { return frozenScreen() != nullptr; }));
    xrandr("--output screen --mode 1400x1000");
    EXPECT_TRUE(waitFor([] { return frozenScreen() == nullptr; }));
    EXPECT_TRUE(window().isVisible());
    xrandr("--delmode screen small");
    xrandr("--rmmode small");
    EXPECT_EQ(basket().count(), 1);
}

TEST_F(RealCapture, APictureThatCantBeSavedIsReportedAndOfferedForAnotherPlace) {
    reportFileSizeLimitAsError();
    TestDesktop scripted;
    const auto captureTo = [&](const QString& folder, const QString& other) {
        ConfigRecord.CaptureFolder = folder;
        scripted.fileChoices.push_back(FileDialogChoice{other, 1});
        const auto reports = scripted.reports.size(), dialogs = scripted.fileDialogs.size();
        const int rows = basket().count();
        capture(CaptureKind::Foreground, "cmdCapture");
        EXPECT_TRUE(waitFor([&] { return scripted.fileDialogs.size() == dialogs + 1; }));
        EXPECT_EQ(window().workspace().ibMain.Width(), 1400) << "on show before it is saved";
        const FileDialogRequest& asked = scripted.fileDialogs.back();
        EXPECT_TRUE(asked.filter.startsWith(QStringLiteral("Tag Image"))) << asked.filter.toStdString();
        EXPECT_EQ(QFileInfo(asked.initialPath).fileName().toStdString(), "Captured4999.5");
        EXPECT_FALSE(asked.initialPath.startsWith(path("program"))) << "which is hidden";
        ASSERT_EQ(scripted.reports.size(), reports + 1);
        EXPECT_EQ(scripted.reports.back().ErrRoutine.toStdString(), "FrmMain.subAddCapturedItem");
        EXPECT_TRUE(waitFor([&] { return QFileInfo::exists(other); }));
        EXPECT_EQ(loaded(other).Width(), 1400);
        ASSERT_TRUE(waitFor([&] { return basket().count() == rows + 1 && !window().preview().isBusy(); }));
        EXPECT_EQ(basket().row(rows).tag.toStdString(), other.toStdString());
        EXPECT_EQ(window().preview().shownPath().toStdString(), other.toStdString());
    };
    captureTo(path("missing/"), path("other1.tif"));
    EXPECT_FALSE(QFileInfo::exists(path("missing")));
    // Not a folder: as good as one that nobody, not even root, may write to.
    captureTo(QStringLiteral("/proc/"), path("other2.png"));
    ConfigRecord.CaptureFolder = path("captured/");
    scripted.reports.clear();
    {
        const FileSizeLimit full(100'000);
        capture(CaptureKind::Foreground, "cmdCapture");
        EXPECT_TRUE(waitFor([&] { return scripted.reports.size() == 1; }));
    }
    EXPECT_EQ(files().join(u' ').toStdString(), "") << "nothing that is not whole";
    EXPECT_TRUE(waitFor([&] { return scripted.fileDialogs.size() == 3; }));
    EXPECT_TRUE(scripted.unexpected.size() <= 1); // that dialog was cancelled
}

TEST_F(RealCapture, CapturesThatFollowEachOtherAreSeveralFilesAndABatchInWorkGetsItsRowsAfterwards) {
    makePictures(1);
    listFolder(pictures());
    addAll();
    capture(CaptureKind::Foreground, "cmdCapture");
    QTest::keyClick(&window(), Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier); // one is going on
    const Picture first = capturedAs(2);
    capture(CaptureKind::Foreground, "cmdCapture");
    EXPECT_EQ(capturedAs(3).width(), first.width());
    EXPECT_EQ(files().size(), 2);

    capture(CaptureKind::Foreground, "cmdCapture");
    script.on("frmSaveSinglePage", [this](QWidget& dialog) {
        EXPECT_TRUE(waitFor([this] { return files().size() == 3; }));
        QTest::qWait(700);
        EXPECT_EQ(basket().count(), 3);
        dialog.close();
    });
    child<QMenu>(window(), "mnuSaveAsParent").actions().constFirst()->trigger();
    capturedAs(4);
    EXPECT_TRUE(script.isDone());
}

TEST_F(RealCapture, OneInTheFolderOfPageFilesIsKeptLikeAScannedPage) {
    ConfigRecord.CaptureFolder = path("program/Temp");
    capture(CaptureKind::Foreground, "cmdCapture");
    capturedAs(1);
    EXPECT_EQ(acquiredFiles::present(path("program/Temp")), QStringList{basket().row(0).tag});
}

TEST_F(RealCapture, TheWindowClosesWithinTheTimeThatWindowsGet) {
    capture(CaptureKind::Background, "cmdCapture");
    EXPECT_TRUE(waitFor([this] { return !window().isVisible(); }));
    close();
    EXPECT_EQ(files().size(), 0);
    start();
    EXPECT_TRUE(window().isVisible());
}

} // namespace tarsel::test
