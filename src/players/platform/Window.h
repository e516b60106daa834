// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tarsel::players {

enum class Key { Other, Escape, Space, Back, Forward };

struct Event {
    enum class Kind { Key, Press, Move, Exposed, Closed };

    Kind kind = Kind::Exposed;
    Key key = Key::Other;
    int x = 0; ///< of the pointer, in pixels of the canvas
    int y = 0;
};

struct WindowWish {
    std::string title;
    std::optional<std::uint64_t> host; ///< drawn into, instead of a window over the screen
    int width = 0;                     ///< in the middle of the screen; 0 for all of it
    int height = 0;
    bool hidesPointer = true;
};

/// What a player draws into and hears from.
class Window {
public:
    virtual ~Window() = default;

    /// Throws PlayerError where there is no screen, or no such host window. Shows nothing yet.
    static std::unique_ptr<Window> open(const WindowWish& wish);

    virtual Box screen() const = 0; ///< no canvas becomes larger
    /// The size of the window now. What was drawn is lost where that changes.
    virtual Canvas canvas() = 0;
    /// Brings the canvas to the screen, the first time with the window.
    virtual void present() = 0;
    /// Waits for something to happen, at most that long.
    virtual std::optional<Event> wait(double seconds) = 0;
    virtual bool isSeen() const = 0; ///< false where other windows cover all of it
    virtual void showPointer(bool isShown) = 0;
};

} // namespace tarsel::players
