// SPDX-License-Identifier: MIT
#include "players/SlideControls.h"

#include "players/effects/Frost.h"

namespace tarsel::players {

namespace {

using Button = SlideControls::Button;

constexpr int buttons = 5;
constexpr int buttonSize = 64;
constexpr int padding = 8;
constexpr std::uint32_t glass = 0xFF14181C;
constexpr std::uint32_t ink = 0xFFFFFFFF;
constexpr std::uint32_t accent = 0xFF3D8BFF;

/// Points to the right for a positive `half`, to the left for a negative one.
struct Triangle {
    Point centre;
    double half;

    double distance(Point p) const {
        const double along = (p.x - centre.x) * (half < 0 ? -1 : 1);
        const double across = std::abs(p.y - centre.y);
        const double size = std::abs(half);
        // Its slanted sides rise by 1 to 2.
        return std::max(-along - size * 0.8, (along + 2 * across - size * 1.2) / std::sqrt(5.0));
    }
    Box bounds(double margin) const { return Disc{centre, std::abs(half) * 1.3}.bounds(margin); }
};

Point centreOf(const Box& panel, int button) {
    return {panel.left + padding + (button + 0.5) * buttonSize, panel.top + padding + buttonSize / 2.0};
}

void drawBar(const Canvas& canvas, Point at, double x, double opacity) {
    paint(canvas, Stroke{{at.x + x, at.y - 8.5}, {at.x + x, at.y + 8.5}, 2.2, 2.2}, ink, opacity);
}

void drawSign(const Canvas& canvas, Button button, Point at, double opacity) {
    switch (button) {
    case Button::Previous:
        paint(canvas, Triangle{{at.x + 2, at.y}, -10.0}, ink, opacity);
        return drawBar(canvas, at, -10, opacity);
    case Button::Play:
        return paint(canvas, Triangle{{at.x - 1, at.y}, 13.0}, ink, opacity);
    case Button::Pause:
        drawBar(canvas, at, -5, opacity);
        return drawBar(canvas, at, 5, opacity);
    case Button::Next:
        paint(canvas, Triangle{{at.x - 2, at.y}, 10.0}, ink, opacity);
        return drawBar(canvas, at, 10, opacity);
    case Button::Exit:
        for (const double side : {-8.0, 8.0})
            paint(canvas, Stroke{{at.x - side, at.y - 8}, {at.x + side, at.y + 8}, 2, 2}, ink, opacity);
    }
}

bool contains(const Box& box, int x, int y) {
    return x >= box.left && y >= box.top && x < box.left + box.width && y < box.top + box.height;
}

} // namespace

void SlideControls::draw(const Canvas& canvas, bool isPlaying) {
    const int width = buttons * buttonSize + 2 * padding;
    const int height = buttonSize + 2 * padding;
    m_panel = {(canvas.width - width) / 2, canvas.height - height - std::min(48, canvas.height / 20), width,
               height};
    paintFrosted(canvas, RoundedBox{m_panel, height / 2.0}, glass, 0.6, 12);
    for (int i = 0; i < buttons; ++i) {
        const auto button = Button(i);
        const Point centre = centreOf(m_panel, i);
        if (m_hovered == button)
            paint(canvas, Disc{centre, buttonSize / 2.0 - 4}, button == Button::Exit ? 0xFFE5484D : accent,
                  0.9);
        const bool isDone = (button == Button::Play && isPlaying) || (button == Button::Pause && !isPlaying);
        drawSign(canvas, button, centre, isDone ? 0.35 : 1);
    }
}

bool SlideControls::pointTo(int x, int y) {
    m_holdsPointer = contains(m_panel, x, y);
    std::optional<Button> hovered;
    for (int i = 0; i < buttons && m_holdsPointer; ++i) {
        if (Disc{centreOf(m_panel, i), buttonSize / 2.0}.distance({double(x), double(y)}) <= 0)
            hovered = Button(i);
    }
    const bool isOther = hovered != m_hovered;
    m_hovered = hovered;
    return isOther;
}

} // namespace tarsel::players
