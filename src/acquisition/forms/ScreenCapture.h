// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/ScreenSource.h"
#include "acquisition/forms/CaptureChoice.h"
#include "acquisition/forms/fCaptureRectangle.h"

#include <QObject>
#include <QPoint>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>

class QWidget;

namespace tarsel {

/// Takes pictures of the screen: moves windows out of the way, waits for that, takes the picture, lets the
/// user cut out a region, and brings the main window back, whatever happened in between.
class ScreenCapture final : public QObject {
    Q_OBJECT
public:
    using OpenScreen = std::function<std::unique_ptr<ScreenSource>()>;

    ScreenCapture(QWidget& mainWindow, OpenScreen openScreen);
    ~ScreenCapture() override;

    /// Begins a capture; nothing while one is going on. What can't be captured is trapped as
    /// "FrmMain.subCapture".
    void subCapture(const CaptureChoice& choice);
    bool isRunning() const { return m_screen != nullptr; }

Q_SIGNALS:
    /// The main window is back.
    void captured(const tarsel::Picture& picture);
    void ended(); ///< with a picture or without; before `captured`

private:
    void clearScreen();
    void capturePicture();
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
};

} // namespace tarsel
