// SPDX-License-Identifier: MIT
#pragma once

#include "players/platform/Window.h"

namespace tarsel::players {

/// The canvas that a show draws on: the window's own, or, in a window of at most half the screen's width and
/// height, as a preview has it, one larger by a whole number, which it shows reduced.
class Stage {
public:
    explicit Stage(Window& window) : m_window(window) {}

    Canvas canvas();
    void present();
    Event onCanvas(Event event) const;

private:
    Window& m_window;
    Picture m_large;
    int m_reduction = 1;
};

/// Each pixel of `target` is the mean of a square of `side` pixels.
void reduce(const Canvas& target, const Picture& source, int side);

} // namespace tarsel::players
