// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScreenCapture.h"
#include "acquisition/forms/CapturePane.h"
#include "acquisition/forms/frmCapture.h"
#include "base/Stop.h"
#include "tests/gui/DialogScript.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPictures.h"

#include <QApplication>
#include <QCheckBox>
#include <QElapsedTimer>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

namespace tarsel::test {

namespace {

/// What a test makes of the system's screen, and what was asked of it.
struct FakeSystem {
    bool clearsDesktop = true;
    std::atomic<bool> desktopIsShown = false;
    std::function<void()> onGrab; ///< on the main thread
    std::function<void()> inGrab; ///< on the thread of the grab
    std::optional<TrappedError> openFailure, grabFailure;
    std::atomic<int> grabs = 0;
    bool tookPointer = false;
    bool mayAsk = false, isChosen = false;
};

class FakeScreen final : public ScreenSource {
public:
    explicit FakeScreen(FakeSystem& system) : m_system(system) {
        if (system.openFailure)
            throw *system.openFailure;
    }

    ScreenPicture grab(bool withPointer) override {
        ++m_system.grabs;
        m_system.tookPointer = withPointer;
        if (m_system.inGrab)
            m_system.inGrab();
        if (m_system.onGrab)
            QMetaObject::invokeMethod(
                qApp, [this] { m_system.onGrab(); }, Qt::BlockingQueuedConnection);
        if (m_system.grabFailure)
            throw *m_system.grabFailure;
        const QSize size = QGuiApplication::primaryScreen()->size();
        return {noisePicture(size.width(), size.height(), 3), monitors(), m_system.isChosen};
    }
    std::vector<Monitor> monitors() override {
        return {{{{}, QGuiApplication::primaryScreen()->size()}, QGuiApplication::primaryScreen()->name()}};
    }
    bool showDesktop(bool shown) override {
        if (m_system.clearsDesktop)
            m_system.desktopIsShown = shown;
        return m_system.clearsDesktop;
    }
    bool desktopIsShown() override { return m_system.desktopIsShown; }
    bool mayAskUser() const override { return m_system.mayAsk; }

private:
    FakeSystem& m_system;
};

class Capture : public testing::Test {
protected:
    Capture() {
        window.resize(300, 200);
        window.move(40, 50);
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&window));
        open();
    }

    void open(int unseen = ScreenCapture::longestUnseen) {
        capture = std::make_unique<ScreenCapture>(
            window, [this] { return std::make_unique<FakeScreen>(system); }, unseen);
        QObject::connect(capture.get(), &ScreenCapture::ended, [this] { events << QStringLiteral("ended"); });
        QObject::connect(capture.get(), &ScreenCapture::captured, [this](const Picture& picture) {
            EXPECT_TRUE(window.isVisible());
            events << QStringLiteral("captured");
            taken = picture;
        });
    }
    void run(const CaptureChoice& choice) {
        capture->subCapture(choice);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !capture->isRunning(); }));
    }
    static CapturePane* pane() {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<CapturePane*>(each); found && found->isVisible())
                return found;
        return nullptr;
    }
    /// Begins a capture of a region and waits until the frozen screen is there.
    CapturePane& freeze(CaptureKind kind) {
        capture->subCapture({kind, true});
        EXPECT_TRUE(QTest::qWaitFor([] { return pane() != nullptr; }));
        return *pane();
    }

    TestDesktop desktop;
    FakeSystem system;
    QWidget window;
    std::unique_ptr<ScreenCapture> capture;
    QStringList events;
    Picture taken;
};

const TrappedError refusal{ErrorNumber::PermissionDenied, QStringLiteral("the desktop refused"), {}};
constexpr CaptureKind kinds[] = {CaptureKind::Desktop, CaptureKind::Foreground, CaptureKind::Background};

} // namespace

TEST_F(Capture, WindowsAreOutOfTheWayWhileThePictureIsTakenAndBackWhenItIsHandedOn) {
    const struct {
        CaptureKind kind;
        bool clearsDesktop, wasShown;
        bool isVisible, isClear; ///< when the picture is taken
    } cases[] = {
        {CaptureKind::Desktop, true, false, true, true}, // by the window manager
        {CaptureKind::Desktop, false, false, false, false},
        {CaptureKind::Desktop, true, true, false, true}, // the window was opened since
        {CaptureKind::Foreground, true, false, true, false},
        {CaptureKind::Background, true, false, false, false},
    };
    for (const auto& each : cases) {
        system.clearsDesktop = each.clearsDesktop;
        system.desktopIsShown = each.wasShown;
        system.onGrab = [&] {
            EXPECT_EQ(window.isVisible(), each.isVisible) << int(each.kind);
            EXPECT_EQ(system.desktopIsShown, each.isClear) << int(each.kind);
        };
        events.clear();
        QElapsedTimer time;
        time.start();
        run({each.kind, false, true});
        EXPECT_GE(time.elapsed(), each.kind == CaptureKind::Foreground ? 100 : 490);
        EXPECT_EQ(events.join(u' ').toStdString(), "ended captured");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(window.pos(), QPoint(40, 50));
        EXPECT_EQ(system.desktopIsShown, each.wasShown);
        EXPECT_TRUE(system.tookPointer);
    }
    EXPECT_EQ(system.grabs, int(std::size(cases)));
}

TEST_F(Capture, TheWindowKeepsStateAndFocusButIsNotMinimisedAfterwards) {
    QPushButton first(&window), second(&window);
    for (QPushButton* button : {&first, &second})
        button->show();
    for (const Qt::WindowStates state :
         {Qt::WindowStates(Qt::WindowNoState), Qt::WindowStates(Qt::WindowMaximized),
          Qt::WindowMinimized | Qt::WindowMaximized, Qt::WindowStates(Qt::WindowMinimized)}) {
        window.setWindowState(state);
        second.setFocus();
        run({CaptureKind::Background});
        EXPECT_EQ(window.focusWidget(), &second);
        EXPECT_EQ(window.windowState(), state & ~Qt::WindowMinimized) << int(state);
    }
}

TEST_F(Capture, AllWindowsButThoseThatWaitForAnAnswerAreOutOfTheWayAndBackAsTheyWere) {
    class Growing final : public QDialog {
    public:
        using QDialog::QDialog;

    protected:
        void showEvent(QShowEvent*) override { resize(333, 222); }
    };
    Growing dialog(&window);
    QDialog question(&dialog);
    QWidget other;
    auto* closing = new QDialog(&window);
    question.setWindowModality(Qt::WindowModal);
    QWidget* const windows[] = {&dialog, &question, &other, closing};
    for (QWidget* each : windows)
        each->show();
    const QRect place(90, 80, 260, 140);
    dialog.setGeometry(place);
    other.setWindowState(Qt::WindowMinimized);
    QPushButton first(&dialog), second(&dialog);
    for (QPushButton* button : {&first, &second})
        button->show();
    second.setFocus();
    system.onGrab = [&] {
        for (const QWidget* each : windows)
            EXPECT_EQ(each->isVisible(), each == &question);
        std::default_delete<QDialog>()(closing);
    };
    run({CaptureKind::Background});
    EXPECT_TRUE(dialog.isVisible() && question.isVisible() && other.isVisible());
    EXPECT_EQ(dialog.geometry(), place);
    EXPECT_EQ(dialog.focusWidget(), &second);
    EXPECT_TRUE(other.isMinimized());
}

TEST_F(Capture, WindowsComeBackWhileTheDesktopAsksAndThePictureIsTakenAgainWithoutThem) {
    open(50);
    std::atomic<int> waits = 0;
    QObject::connect(capture.get(), &ScreenCapture::waiting, [&] {
        EXPECT_TRUE(window.isVisible());
        ++waits;
    });
    int slowGrabs = 0; // how many of the first ones the user thinks about
    system.inGrab = [&] {
        QElapsedTimer time;
        for (time.start(); system.grabs <= slowGrabs && waits < system.grabs && !time.hasExpired(5000);)
            std::this_thread::yield();
    };
    const auto grabsOf = [&](CaptureKind kind, int slow) {
        system.grabs = waits = 0;
        slowGrabs = slow;
        run({kind});
        EXPECT_EQ(events.last().toStdString(), "captured");
        return system.grabs.load();
    };
    EXPECT_EQ(grabsOf(CaptureKind::Background, 0), 1) << "nobody is asked";
    system.mayAsk = true;
    system.onGrab = [&] { EXPECT_EQ(window.isVisible(), system.grabs <= slowGrabs); };
    EXPECT_EQ(grabsOf(CaptureKind::Background, 1), 2);
    EXPECT_EQ(grabsOf(CaptureKind::Background, 2), 2) << "asked each time, it takes what it gets";
    system.isChosen = true;
    EXPECT_EQ(grabsOf(CaptureKind::Background, 1), 1) << "the user has seen what is on the picture";
    EXPECT_EQ(waits, 1);
    system.onGrab = {};
    slowGrabs = 0;
    EXPECT_EQ(grabsOf(CaptureKind::Foreground, 0), 1);
    EXPECT_EQ(waits, 0) << "nothing was hidden";
}

TEST_F(Capture, AfterAFailureTheWindowIsBackBeforeItIsReportedAndTheNextCaptureWorks) {
    desktop.onReport = [this] {
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(system.desktopIsShown);
        EXPECT_FALSE(capture->isRunning());
    };
    for (const CaptureKind kind : kinds)
        for (const bool region : {false, true}) {
            desktop.reports.clear();
            system.openFailure = refusal;
            run({kind, region});
            system.openFailure.reset();
            system.grabFailure = refusal;
            run({kind, region});
            system.grabFailure.reset();
            ASSERT_EQ(desktop.reports.size(), 2u);
            EXPECT_EQ(desktop.reports[0].ErrRoutine.toStdString(), "FrmMain.subCapture");
            EXPECT_EQ(desktop.reports[1].ErrRoutine.toStdString(), "FrmMain.capturePicture");
            EXPECT_EQ(pane(), nullptr);
        }
    EXPECT_FALSE(events.contains(QStringLiteral("captured")));
    run({CaptureKind::Foreground});
    EXPECT_EQ(events.last().toStdString(), "captured");
}

TEST_F(Capture, ARegionIsTakenOrLeftWithTheWindowsOutOfTheWayUntilThen) {
    for (const CaptureKind kind : kinds)
        for (const bool leaves : {false, true}) {
            events.clear();
            CapturePane& frozen = freeze(kind);
            EXPECT_EQ(window.isVisible(), kind != CaptureKind::Background);
            EXPECT_FALSE(system.desktopIsShown) << "back before a window opens on the cleared desktop";
            EXPECT_TRUE(events.isEmpty());
            QTest::mousePress(&frozen, Qt::LeftButton, {}, {30, 40});
            QTest::mouseMove(&frozen, {79, 69});
            QTest::mouseRelease(&frozen, Qt::LeftButton, {}, {79, 69});
            QTest::keyClick(&frozen, leaves ? Qt::Key_Escape : Qt::Key_Return);
            if (leaves)
                QTest::keyClick(&frozen, Qt::Key_Escape);
            EXPECT_EQ(pane(), nullptr);
            EXPECT_TRUE(window.isVisible());
            EXPECT_FALSE(system.desktopIsShown);
            EXPECT_EQ(events.join(u' ').toStdString(), leaves ? "ended" : "ended captured");
            if (!leaves) {
                EXPECT_EQ(std::pair(taken.width(), taken.height()), std::pair(50, 30));
            }
        }
}

TEST_F(Capture, ASecondOneWaitsForTheEndOfTheFirst) {
    capture->subCapture({CaptureKind::Background});
    run({CaptureKind::Foreground});
    EXPECT_EQ(system.grabs, 1);
    run({CaptureKind::Foreground});
    EXPECT_EQ(system.grabs, 2);
    freeze(CaptureKind::Foreground);
    capture->subCapture({CaptureKind::Foreground});
    QTest::qWait(300);
    EXPECT_EQ(system.grabs, 3);
    EXPECT_NE(pane(), nullptr);
}

TEST_F(Capture, TheWindowAnswersWhileTheDesktopAsksTheUser) {
    std::atomic<int> ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(1);
    system.inGrab = [&] {
        const int before = ticks;
        QElapsedTimer time;
        for (time.start(); ticks < before + 20 && !time.hasExpired(5000);)
            std::this_thread::yield();
        EXPECT_GE(ticks, before + 20);
    };
    run({CaptureKind::Foreground});
    EXPECT_EQ(events.last().toStdString(), "captured");
}

TEST_F(Capture, TheProgramEndsAtAnyMomentOfACaptureAndTheDesktopComesBack) {
    const auto endNow = [this] {
        QElapsedTimer time;
        time.start();
        capture.reset();
        EXPECT_LT(time.elapsed(), 2000);
        EXPECT_FALSE(system.desktopIsShown);
        EXPECT_EQ(pane(), nullptr);
        open();
    };
    capture->subCapture({CaptureKind::Desktop});
    EXPECT_TRUE(system.desktopIsShown);
    endNow(); // within the time that windows get
    QTest::qWait(600);
    EXPECT_EQ(system.grabs, 0);

    system.inGrab = [] { // a question that nobody answers
        while (true) {
            raiseIfStopped();
            std::this_thread::yield();
        }
    };
    capture->subCapture({CaptureKind::Desktop});
    EXPECT_TRUE(QTest::qWaitFor([this] { return system.grabs == 1; }));
    endNow();
    system.inGrab = {};

    freeze(CaptureKind::Desktop);
    endNow();
    EXPECT_TRUE(events.isEmpty());
    EXPECT_TRUE(desktop.reports.empty());
}

TEST_F(Capture, TheDialogTellsWhatIsToBeCapturedAndKeepsTheKind) {
    const struct {
        Qt::Key kind, button;
        CaptureKind wanted;
        bool region;
    } cases[] = {
        {Qt::Key_F, Qt::Key_W, CaptureKind::Foreground, false},
        {Qt::Key_B, Qt::Key_R, CaptureKind::Background, true},
        {Qt::Key_D, Qt::Key_R, CaptureKind::Desktop, true},
    };
    settings::PublishingSettings record;
    for (const auto& each : cases) {
        frmCapture dialog(record, each.region, &window);
        EXPECT_EQ(child<QRadioButton>(dialog, "optCapture_0").isChecked(), record.CaptureOption == 0);
        EXPECT_EQ(child<QCheckBox>(dialog, "chkPointer").isChecked(), each.region);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        // A button goes down for a moment before its mnemonic has an effect.
        const auto press = [&](Qt::Key key, const auto& hasEffect) {
            QTest::keyClick(&dialog, key, Qt::AltModifier);
            EXPECT_TRUE(QTest::qWaitFor(hasEffect));
        };
        const QByteArray radio = "optCapture_" + QByteArray::number(int(each.wanted));
        const auto& kind = child<QRadioButton>(dialog, radio.constData());
        EXPECT_TRUE(QTest::qWaitFor([&] { // the first window may not take keys at once
            QTest::keyClick(&dialog, each.kind, Qt::AltModifier);
            return kind.isChecked();
        }));
        press(Qt::Key_P, [&] { return child<QCheckBox>(dialog, "chkPointer").isChecked() != each.region; });
        press(each.button, [&] { return dialog.result() == QDialog::Accepted; });
        EXPECT_EQ(dialog.choice().kind, each.wanted);
        EXPECT_EQ(dialog.choice().region, each.region);
        EXPECT_EQ(dialog.choice().withPointer, !each.region);
        EXPECT_EQ(record.CaptureOption, int(each.wanted));
    }
    for (const auto& [key, result] :
         {std::pair(Qt::Key_Escape, QDialog::Rejected), {Qt::Key_Return, QDialog::Accepted}}) {
        frmCapture dialog(record, false, &window);
        dialog.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        child<QRadioButton>(dialog, "optCapture_2").click();
        QTest::keyClick(&dialog, key);
        EXPECT_EQ(dialog.result(), result);
        EXPECT_EQ(record.CaptureOption, result == QDialog::Accepted ? 2 : 0)
            << "Exit keeps the kind as it was";
        EXPECT_FALSE(dialog.choice().region) << "Return takes the whole screen";
    }
}

} // namespace tarsel::test
