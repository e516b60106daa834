// SPDX-License-Identifier: MIT
#include "players/PictureShow.h"

#include <algorithm>
#include <limits>

namespace tarsel::players {

namespace {

constexpr double never = std::numeric_limits<double>::infinity();
constexpr int mostMoves = 15;
constexpr double movesTime = 0.5;

} // namespace

PictureShow::PictureShow(const Payload& payload, const Box& screen, double now) :
    m_payload(payload), m_screen(screen) {
    const joined::SaverOptions options = payload.saverOptions();
    m_background = pixelOf(options.backColor);
    m_interval = std::max<int>(options.interval, 0);
    load(1);
    waitFrom(now);
}

/// The picture at m_index, or the next one in that direction that can be shown.
void PictureShow::load(int by) {
    const std::size_t count = m_payload.count();
    for (std::size_t tried = 0; tried < count; ++tried) {
        if (auto picture = m_payload.picture(m_index, m_screen)) {
            m_picture = std::move(*picture);
            return;
        }
        m_index = (m_index + (by > 0 ? 1 : count - 1)) % count;
    }
    m_payload.fail("none of its pictures can be shown");
}

void PictureShow::waitFrom(double now) {
    m_next = m_isPlaying && m_interval > 0 ? now + m_interval : never;
}

void PictureShow::step(int by, double now) {
    const std::size_t count = m_payload.count();
    m_index = (m_index + (by > 0 ? 1 : count - 1)) % count;
    if (count > 1)
        load(by);
    waitFrom(now);
}

void PictureShow::play(bool isPlaying, double now) {
    m_isPlaying = isPlaying;
    waitFrom(now);
}

void PictureShow::draw(const Canvas& canvas, double now) {
    if (now >= m_next)
        step(1, now);
    drawCentred(canvas, m_picture, m_background);
}

double PictureShow::nextFrame(double) const {
    return m_next;
}

bool SaverShow::take(const Event& event, double now) {
    if (event.kind != Event::Kind::Move)
        return false;
    if (event.x == m_x && event.y == m_y) // as when the window comes up under the pointer
        return true;
    m_x = event.x;
    m_y = event.y;
    if (now >= m_movesEnd) {
        m_moves = 0;
        m_movesEnd = now + movesTime;
    }
    return ++m_moves <= mostMoves;
}

} // namespace tarsel::players
