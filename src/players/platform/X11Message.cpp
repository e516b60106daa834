// SPDX-License-Identifier: MIT
#include "players/effects/Font.h"
#include "players/effects/Letters.h"
#include "players/effects/Shapes.h"
#include "players/platform/PlayerError.h"
#include "players/platform/System.h"
#include "players/platform/Window.h"

namespace tarsel::players {

namespace {

constexpr std::uint32_t ground = 0xFFF4F5F7;
constexpr std::uint32_t ink = 0xFF1E2226;
constexpr std::uint32_t warning = 0xFFF5A623;

/// A yellow disc with an exclamation mark.
void drawSign(const Canvas& canvas, Point centre) {
    paint(canvas, Disc{centre, 22}, warning);
    paint(canvas, Stroke{{centre.x, centre.y - 11}, {centre.x, centre.y + 3}, 2.8, 2}, ground);
    paint(canvas, Disc{{centre.x, centre.y + 11}, 2.6}, ground);
}

void drawMessage(const Canvas& canvas, const std::string& text) {
    fillAround(canvas, {}, ground);
    drawSign(canvas, {52, canvas.height / 2.0 - 18});
    Font font(19);
    drawText(canvas, font, lettersOf(text), 94, canvas.height / 2.0 - 11, ink);
    const Box button{canvas.width - 116, canvas.height - 52, 96, 34};
    paint(canvas, RoundedBox{button, 6}, 0xFFC9CED6);
    paint(canvas, RoundedBox{{button.left + 1, button.top + 1, button.width - 2, button.height - 2}, 5},
          0xFFFFFFFF);
    drawText(canvas, font, U"OK", button.left + (button.width - font.width(U"OK")) / 2, button.top + 23, ink);
}

} // namespace

void showMessage(const std::string& title, const std::string& text) try {
    const auto window = Window::open({title, {}, 430, 150, false});
    for (bool isOpen = true; isOpen;) {
        drawMessage(window->canvas(), text);
        window->present();
        const auto event = window->wait(3600);
        isOpen = !event || event->kind == Event::Kind::Exposed || event->kind == Event::Kind::Move;
    }
} catch (const PlayerError&) {
    print(title + ": " + text + '\n');
}

} // namespace tarsel::players
