// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/ScreenSource.h"
#include "acquisition/forms/CaptureChoice.h"
#include "acquisition/forms/fCaptureRectangle.h"
#include "base/TrappedError.h"

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QThreadPool>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

class QWidget;

namespace tarsel {

/// Takes pictures of the screen: moves windows out of the way, waits for that, takes the picture in the
/// background, lets the user cut out a region, and brings the main window back, whatever happened in between.
class ScreenCapture final : public QObject {
    Q_OBJECT
public:
    using OpenScreen = std::function<std::unique_ptr<ScreenSource>()>;

    ScreenCapture(QWidget& mainWindow, OpenScreen openScreen);
    ~ScreenCapture() override;

    /// Begins a capture; nothing while one is going on. What can't be captured is trapped as
    /// "FrmMain.subCapture" or "FrmMain.capturePicture", once the main window is back.
    void subCapture(const CaptureChoice& choice);
    bool isRunning() const { return m_screen != nullptr; }

Q_SIGNALS:
    /// The main window is back.
    void captured(const tarsel::Picture& picture);
    void ended(); ///< with a picture or without; before `captured`

private:
    void clearScreen();
    void capturePicture();
    void takePicture(ScreenPicture taken);
    void endWith(const char* routine, const TrappedError& failure);
    void hideMainWindow();
    void end();
    void hand(const Picture& picture);

    QWidget& m_mainWindow;
    OpenScreen m_openScreen;
    CaptureChoice m_choice;
    QTimer timerCapture;
    fCaptureRectangle m_rectangle;
    std::unique_ptr<ScreenSource> m_screen; ///< while a capture goes on
    std::optional<ClearedDesktop> m_cleared;
    bool m_isHidden = false; ///< the main window, by us
    Qt::WindowStates m_stateBefore;
    QPoint m_placeBefore;
    QPointer<QWidget> m_focusBefore;
    std::stop_source m_stop;
    QThreadPool m_threads; ///< last, so that what it uses lives until it is done
};

} // namespace tarsel
