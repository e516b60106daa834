// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/ScreenPicture.h"

#include <chrono>
#include <functional>
#include <memory>

namespace tarsel {

/// What is on the screen, from this system.
class ScreenSource {
public:
    virtual ~ScreenSource() = default;

    /// Takes the picture, on any thread, and obeys its stop. Raises: 53 a screen that can't be reached, 70
    /// one that refuses, 7 one too large, 18 after a stop.
    virtual ScreenPicture grab(bool withPointer) = 0;
    virtual std::vector<Monitor> monitors() = 0;

    /// Asks the window manager to clear the desktop of windows, or to bring them back. False where there is
    /// none that can.
    virtual bool showDesktop(bool shown) = 0;
    virtual bool desktopIsShown() = 0;

    /// Ids of all windows from the lowest up; none where that isn't known.
    virtual std::vector<quintptr> stacking() { return {}; }
    /// A picture may take as long as the user thinks about it.
    virtual bool mayAskUser() const { return false; }
};

/// Clears the desktop of windows as long as it lives. Windows that were out of the way already stay there.
class ClearedDesktop {
public:
    explicit ClearedDesktop(ScreenSource& screen) :
        m_screen(screen), m_cleared(!screen.desktopIsShown() && screen.showDesktop(true)) {}
    ~ClearedDesktop() {
        if (m_cleared)
            m_screen.showDesktop(false);
    }
    ClearedDesktop(const ClearedDesktop&) = delete;
    ClearedDesktop& operator=(const ClearedDesktop&) = delete;

    /// False where windows could not be moved out of the way.
    bool isCleared() const { return m_cleared || m_screen.desktopIsShown(); }
    /// False also where the desktop was clear already; a window that was opened since may still be there.
    bool movesWindows() const { return m_cleared; }
    /// The window manager has taken them away; that of a busy computer needs its time.
    bool isDone() const { return !m_cleared || m_screen.desktopIsShown(); }

private:
    ScreenSource& m_screen;
    bool m_cleared;
};

/// The screen of the X server that the environment names. Raises 53 when there is none.
std::unique_ptr<ScreenSource> x11Screen();

/// Pictures that the desktop takes for programs, by its portal on D-Bus: in a session of Wayland there is no
/// other way. It draws no pointer, clears no desktop, and may ask the user. Raises 18 when the user refuses,
/// 70 after `longestWait` without an answer. To be made on the main thread.
std::unique_ptr<ScreenSource> portalScreen(std::chrono::milliseconds longestWait = std::chrono::minutes(2));

/// The one of the two that fits the session.
std::unique_ptr<ScreenSource> systemScreen();

} // namespace tarsel
