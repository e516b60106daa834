// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"

#include <optional>

namespace tarsel::players {

/// The panel of a slide show: round buttons on frosted glass, near the lower edge.
class SlideControls {
public:
    enum class Button { Previous, Play, Pause, Next, Exit };

    void draw(const Canvas& canvas, bool isPlaying);
    /// The pointer is at this pixel of the canvas drawn last. True where another button is under it now.
    bool pointTo(int x, int y);
    std::optional<Button> hovered() const { return m_hovered; }
    bool holdsPointer() const { return m_holdsPointer; }

private:
    Box m_panel;
    std::optional<Button> m_hovered;
    bool m_holdsPointer = false;
};

} // namespace tarsel::players
