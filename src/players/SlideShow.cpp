// SPDX-License-Identifier: MIT
#include "players/SlideShow.h"

#include <algorithm>

namespace tarsel::players {

namespace {

constexpr double controlsTime = 2.5;

} // namespace

void SlideShow::draw(const Canvas& canvas, double now) {
    PictureShow::draw(canvas, now);
    m_isStale = false;
    m_hasControls = now < m_controlsEnd || m_controls.holdsPointer();
    if (m_hasControls)
        m_controls.draw(canvas, isPlaying());
}

double SlideShow::nextFrame(double now) const {
    if (m_isStale)
        return now;
    const double next = PictureShow::nextFrame(now);
    return m_hasControls && !m_controls.holdsPointer() ? std::min(next, m_controlsEnd) : next;
}

bool SlideShow::take(const Event& event, double now) {
    m_isStale = m_isStale || event.kind != Event::Kind::Move;
    switch (event.kind) {
    case Event::Kind::Move:
        moveTo(event.x, event.y, now);
        return true;
    case Event::Kind::Press:
        return press(event.x, event.y, now);
    default:
        break;
    }
    switch (event.key) {
    case Key::Space:
        play(!isPlaying(), now);
        return true;
    case Key::Back:
        step(-1, now);
        return true;
    case Key::Forward:
        step(1, now);
        return true;
    default:
        return false;
    }
}

void SlideShow::moveTo(int x, int y, double now) {
    if (x == m_x && y == m_y)
        return;
    const bool isFirst = m_x < 0; // the window came up under the pointer
    m_x = x;
    m_y = y;
    if (isFirst)
        return;
    m_isStale = m_controls.pointTo(x, y) || !m_hasControls || m_isStale;
    m_controlsEnd = now + controlsTime;
    m_hasControls = true;
}

bool SlideShow::press(int x, int y, double now) {
    if (!m_hasControls)
        return false;
    m_controls.pointTo(x, y);
    if (!m_controls.holdsPointer())
        return false;
    switch (m_controls.hovered().value_or(isPlaying() ? SlideControls::Button::Play
                                                      : SlideControls::Button::Pause)) {
    case SlideControls::Button::Previous:
        step(-1, now);
        return true;
    case SlideControls::Button::Play:
        if (!isPlaying())
            play(true, now);
        return true;
    case SlideControls::Button::Pause:
        play(false, now);
        return true;
    case SlideControls::Button::Next:
        step(1, now);
        return true;
    default:
        return false;
    }
}

} // namespace tarsel::players
