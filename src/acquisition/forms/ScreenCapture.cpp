// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScreenCapture.h"

#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "base/Stop.h"

#include <QWidget>
#include <utility>

namespace tarsel {

namespace {

constexpr int clearingTime = 500; ///< milliseconds that windows get to move out of the way
constexpr int dialogTime = 200;   ///< the same for the dialog alone
constexpr int lookTime = 100;     ///< milliseconds between looks at windows that take longer
constexpr int mostLooks = 20;

} // namespace

ScreenCapture::ScreenCapture(QWidget& mainWindow, OpenScreen openScreen, int unseen) :
    m_mainWindow(mainWindow), m_openScreen(std::move(openScreen)) {
    timerCapture.setSingleShot(true);
    m_unseen.setSingleShot(true);
    m_unseen.setInterval(unseen);
    connect(&m_unseen, &QTimer::timeout, this, &ScreenCapture::stopHiding);
    connect(&timerCapture, &QTimer::timeout, this, &ScreenCapture::captureOnceClear);
    connect(&m_rectangle, &fCaptureRectangle::taken, this, &ScreenCapture::hand);
    connect(&m_rectangle, &fCaptureRectangle::left, this, &ScreenCapture::end);
}

/// The desktop may be asking the user; nobody waits for the answer.
ScreenCapture::~ScreenCapture() {
    m_stop.request_stop();
}

void ScreenCapture::subCapture(const CaptureChoice& choice) {
    if (isRunning())
        return;
    m_choice = choice;
    m_wasSeen = m_isSecond = false;
    const auto failure = failureOf([this] {
        m_screen = m_openScreen();
        clearScreen();
    });
    if (failure)
        endWith("FrmMain.subCapture", *failure);
}

void ScreenCapture::clearScreen() {
    m_looks = 0;
    switch (m_choice.kind) {
    case CaptureKind::Desktop:
        m_cleared.emplace(*m_screen);
        if (!m_cleared->movesWindows())
            hideWindows(); // as much as can be done without the window manager
        break;
    case CaptureKind::Foreground:
        timerCapture.start(dialogTime);
        return;
    case CaptureKind::Background:
        hideWindows();
        break;
    }
    timerCapture.start(clearingTime);
}

void ScreenCapture::hideWindows() {
    m_hidden.emplace(m_screen->stacking());
}

void ScreenCapture::showWindows() {
    if (m_hidden)
        m_hidden->showAgain(m_mainWindow);
    m_hidden.reset();
}

/// An answer may take its time, or never come: nobody could stop a program without a window.
void ScreenCapture::stopHiding() {
    m_wasSeen = true;
    showWindows();
    Q_EMIT waiting();
}

bool ScreenCapture::isClear() const {
    return (!m_cleared || m_cleared->isDone()) && (!m_hidden || m_hidden->areGone(m_screen->stacking()));
}

void ScreenCapture::captureOnceClear() {
    if (m_looks++ < mostLooks && !isClear())
        return timerCapture.start(lookTime);
    capturePicture();
}

void ScreenCapture::capturePicture() {
    if (m_hidden && m_screen->mayAskUser())
        m_unseen.start();
    m_threads.start([this, stop = m_stop.get_token(), withPointer = m_choice.withPointer] {
        const StopScope scope(stop);
        ScreenPicture taken;
        const auto failure = failureOf([&] { taken = m_screen->grab(withPointer); });
        QMetaObject::invokeMethod(
            this,
            [this, taken, failure] {
                failure ? endWith("FrmMain.capturePicture", *failure) : takePicture(taken);
            },
            Qt::QueuedConnection);
    });
}

/// Windows come back below the frozen screen: some window managers forget them when a window opens on the
/// cleared desktop.
void ScreenCapture::takePicture(ScreenPicture taken) {
    m_unseen.stop();
    m_cleared.reset();
    if (std::exchange(m_wasSeen, false) && !taken.isChosen && !std::exchange(m_isSecond, true))
        return clearScreen(); // the answer is known now: once more without the windows
    if (m_choice.region)
        m_rectangle.ShowPicture(std::move(taken));
    else
        hand(taken.picture);
}

/// The report opens over the main window.
void ScreenCapture::endWith(const char* routine, const TrappedError& failure) {
    end();
    TrappingString = QStringLiteral("Taking a picture of the screen");
    std::ignore = trap(routine, [&] { throw failure; });
}

void ScreenCapture::end() {
    timerCapture.stop();
    m_cleared.reset();
    m_unseen.stop();
    if (!m_hidden)
        m_mainWindow.raise();
    showWindows();
    m_rectangle.hide(); // after the window is back: a program without a window would end
    m_screen.reset();
    m_mainWindow.activateWindow();
    Q_EMIT ended();
}

/// `picture` may be that of a pane which end() takes away.
void ScreenCapture::hand(const Picture& picture) {
    const Picture kept = picture;
    end();
    Q_EMIT captured(kept);
}

} // namespace tarsel
