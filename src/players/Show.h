// SPDX-License-Identifier: MIT
#pragma once

#include "players/platform/Window.h"

namespace tarsel::players {

/// What a player shows, and how it takes input. Times are of secondsNow().
class Show {
public:
    virtual ~Show() = default;

    virtual void draw(const Canvas& canvas, double now) = 0;
    /// When the next frame is due that differs from the one drawn at `now`; also when nobody sees it.
    virtual double nextFrame(double now) const = 0;
    /// False ends the player.
    virtual bool take(const Event& event, double now) = 0;
    /// Whether the pointer shows.
    virtual bool hasPointer() const { return false; }
};

/// Runs until the user ends it or the window is closed. Draws at most 60 times a second, and not while other
/// windows cover all of it.
void run(Show& show, Window& window, bool isHosted);

} // namespace tarsel::players
