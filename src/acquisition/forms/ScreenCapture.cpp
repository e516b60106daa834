// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/ScreenCapture.h"

#include "base/ErrorTrap.h"

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

ScreenCapture::~ScreenCapture() = default;

void ScreenCapture::subCapture(const CaptureChoice& choice) {
    if (isRunning())
        return;
    m_choice = choice;
    if (trap("FrmMain.subCapture", [this] {
            m_screen = m_openScreen();
            clearScreen();
        }))
        end();
}

void ScreenCapture::clearScreen() {
    switch (m_choice.kind) {
    case CaptureKind::Desktop:
        m_cleared.emplace(*m_screen);
        if (!m_cleared->isCleared())
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
    m_isHidden = true;
    m_mainWindow.hide();
}

void ScreenCapture::capturePicture() {
    ScreenPicture taken;
    if (trap("FrmMain.capturePicture", [&] { taken = m_screen->grab(m_choice.withPointer); }))
        end();
    else if (m_choice.region)
        m_rectangle.ShowPicture(std::move(taken));
    else
        hand(taken.picture);
}

void ScreenCapture::end() {
    timerCapture.stop();
    m_cleared.reset();
    if (std::exchange(m_isHidden, false)) {
        m_mainWindow.setWindowState(m_stateBefore & ~Qt::WindowMinimized);
        m_mainWindow.show();
        if (!(m_stateBefore & (Qt::WindowMaximized | Qt::WindowFullScreen)))
            m_mainWindow.move(m_placeBefore); // window managers choose a place for what is shown again
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
