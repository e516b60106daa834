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

} // namespace

ScreenCapture::ScreenCapture(QWidget& mainWindow, OpenScreen openScreen) :
    m_mainWindow(mainWindow), m_openScreen(std::move(openScreen)) {
    timerCapture.setSingleShot(true);
    connect(&timerCapture, &QTimer::timeout, this, &ScreenCapture::capturePicture);
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
    const auto failure = failureOf([this] {
        m_screen = m_openScreen();
        clearScreen();
    });
    if (failure)
        endWith("FrmMain.subCapture", *failure);
}

void ScreenCapture::clearScreen() {
    switch (m_choice.kind) {
    case CaptureKind::Desktop:
        m_cleared.emplace(*m_screen);
        if (!m_cleared->movesWindows())
            hideMainWindow(); // as much as can be done without the window manager
        break;
    case CaptureKind::Foreground:
        timerCapture.start(dialogTime);
        return;
    case CaptureKind::Background:
        hideMainWindow();
        break;
    }
    timerCapture.start(clearingTime);
}

void ScreenCapture::hideMainWindow() {
    m_stateBefore = m_mainWindow.windowState();
    m_placeBefore = m_mainWindow.pos();
    m_focusBefore = m_mainWindow.focusWidget();
    m_isHidden = true;
    m_mainWindow.hide();
}

void ScreenCapture::capturePicture() {
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
    m_cleared.reset();
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
    if (std::exchange(m_isHidden, false)) {
        m_mainWindow.setWindowState(m_stateBefore & ~Qt::WindowMinimized);
        m_mainWindow.show();
        if (!(m_stateBefore & (Qt::WindowMaximized | Qt::WindowFullScreen)))
            m_mainWindow.move(m_placeBefore); // window managers choose a place for what is shown again
        if (m_focusBefore)
            m_focusBefore->setFocus(); // hiding has passed it on
    }
    m_rectangle.hide(); // after the window is back: a program without a window would end
    m_screen.reset();
    m_mainWindow.raise();
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
