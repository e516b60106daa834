// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/ScreenSource.h"
#include "acquisition/forms/CaptureChoice.h"
#include "acquisition/forms/HiddenWindows.h"
#include "acquisition/forms/fCaptureRectangle.h"
#include "base/TrappedError.h"

#include <QObject>
#include <QThreadPool>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

class QWidget;

namespace tarsel {

/// Takes pictures of the screen: moves windows out of the way, waits for that, takes the picture in the
/// background, lets the user cut out a region, and brings the windows back, whatever happened in between.
class ScreenCapture final : public QObject {
    Q_OBJECT
public:
    using OpenScreen = std::function<std::unique_ptr<ScreenSource>()>;

    /// While the desktop asks the user, the windows stay off the screen for no longer than that.
    static constexpr int longestUnseen = 5000; ///< milliseconds

    ScreenCapture(QWidget& mainWindow, OpenScreen openScreen, int unseen = longestUnseen);
    ~ScreenCapture() override;

    /// Begins a capture; nothing while one is going on. What can't be captured is trapped as
    /// "FrmMain.subCapture" or "FrmMain.capturePicture", once the main window is back.
    void subCapture(const CaptureChoice& choice);
    bool isRunning() const { return m_screen != nullptr; }

Q_SIGNALS:
    /// The windows are back, but the desktop still asks the user.
    void waiting();
    /// The main window is back.
    void captured(const tarsel::Picture& picture);
    void ended(); ///< with a picture or without; before `captured`

private:
    void clearScreen();
    bool isClear() const;
    void captureOnceClear();
    void capturePicture();
    void takePicture(ScreenPicture taken);
    void endWith(const char* routine, const TrappedError& failure);
    void hideWindows();
    void showWindows();
    void stopHiding();
    void end();
    void hand(const Picture& picture);

    QWidget& m_mainWindow;
    OpenScreen m_openScreen;
    CaptureChoice m_choice;
    QTimer timerCapture;
    int m_looks = 0;         ///< at a screen that is not yet clear
    QTimer m_unseen;         ///< runs while the desktop may ask and windows are hidden
    bool m_wasSeen = false;  ///< the windows came back before the picture
    bool m_isSecond = false; ///< it is taken again for that
    fCaptureRectangle m_rectangle;
    std::unique_ptr<ScreenSource> m_screen; ///< while a capture goes on
    std::optional<ClearedDesktop> m_cleared;
    std::optional<HiddenWindows> m_hidden;
    std::stop_source m_stop;
    QThreadPool m_threads; ///< last, so that what it uses lives until it is done
};

} // namespace tarsel
