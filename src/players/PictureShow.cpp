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
    m_damaged.resize(payload.count());
    loadFirst();
    waitFrom(now);
}

/// Whether the picture at m_index is now that on show.
bool PictureShow::load() {
    auto picture = m_payload.picture(m_index, m_screen);
    m_damaged[m_index] = !picture;
    if (picture)
        m_picture = std::move(*picture);
    return !m_damaged[m_index];
}

void PictureShow::loadFirst() {
    for (m_index = 0; m_index < m_payload.count(); ++m_index)
        if (load())
            return;
    m_payload.fail("none of its pictures can be shown");
}

void PictureShow::waitFrom(double now) {
    m_next = m_isPlaying && m_interval > 0 ? now + m_interval : never;
}

/// A picture that turns out to be damaged takes its time: the next one is tried with the next frame, after
/// what the user did meanwhile.
void PictureShow::step(int by, double now) {
    const std::size_t count = m_payload.count();
    const std::size_t shown = m_index;
    do
        m_index = (m_index + (by > 0 ? 1 : count - 1)) % count;
    while (m_damaged[m_index] && m_index != shown);
    const bool isLoaded = m_index == shown || load();
    m_direction = isLoaded ? 1 : by;
    if (isLoaded)
        waitFrom(now);
    else
        m_next = now;
}

void PictureShow::play(bool isPlaying, double now) {
    m_isPlaying = isPlaying;
    waitFrom(now);
}

void PictureShow::draw(const Canvas& canvas, double now) {
    if (now >= m_next)
        step(m_direction, now);
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
