// SPDX-License-Identifier: MIT
#include "players/effects/Watery.h"

#include "players/effects/Refraction.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarsel::players {

namespace {

constexpr double stepTime = 1.0 / 120;
constexpr int mostSteps = 8;    ///< in one frame; a slow machine gets slower waves
constexpr double pace = 0.0004; ///< of a wanderer, of the picture's sides in a step
constexpr double shakingTime = 0.9;
constexpr double rings = 3.5;
constexpr int cellsOnShortSide = 360;

} // namespace

Watery::Watery(Picture picture, std::uint32_t seed) : m_picture(std::move(picture)), m_random(seed) {
    double first = 0.15;
    for (Wanderer& wanderer : m_wanderers) {
        wanderer = {m_random.between(0.1, 0.9), m_random.between(0.1, 0.9), m_random.between(0, 360), first,
                    m_random.between(0.7, 1.8)};
        first += m_random.between(0.3, 0.9);
    }
}

void Watery::fitPond(const Box& place) {
    if (place == m_place)
        return;
    m_place = place;
    m_cell = std::max(1, int(std::lround(double(std::min(place.width, place.height)) / cellsOnShortSide)));
    m_pond = Pond((place.width + m_cell - 1) / m_cell + 1, (place.height + m_cell - 1) / m_cell + 1);
    m_isStill = true;
}

void Watery::wander(Wanderer& wanderer) {
    const double angle = wanderer.angle * std::numbers::pi / 180;
    wanderer.x = std::clamp(wanderer.x + pace * std::cos(angle), 0.02, 0.98);
    wanderer.y = std::clamp(wanderer.y + pace * std::sin(angle), 0.02, 0.98);
    wanderer.angle = std::fmod(wanderer.angle + 2 * m_random.unit(), 360);
    const double shaking = m_time - wanderer.touchesAt;
    if (shaking < 0)
        return;
    const double fading = 1 - shaking / shakingTime;
    if (fading <= 0) {
        wanderer.touchesAt = m_time + m_random.between(1.2, 4.5);
        wanderer.strength = m_random.between(0.7, 1.8);
        return;
    }
    m_pond.touch(wanderer.x * m_pond.columns(), wanderer.y * m_pond.rows(), 7,
                 wanderer.strength * fading * std::sin(2 * std::numbers::pi * rings * shaking / shakingTime));
    m_isStill = false;
}

void Watery::advance(double seconds) {
    int steps = 0;
    for (; m_time + stepTime <= seconds && steps < mostSteps; ++steps) {
        m_time += stepTime;
        for (Wanderer& wanderer : m_wanderers)
            wander(wanderer);
        if (!m_isStill)
            m_pond.step();
    }
    if (m_time + stepTime <= seconds) { // what is left out
        for (Wanderer& wanderer : m_wanderers)
            wanderer.touchesAt += seconds - m_time;
        m_time = seconds;
    }
    if (steps > 0 && !m_isStill && m_pond.isStill()) {
        m_pond.calm();
        m_isStill = true;
    }
}

void Watery::draw(const Canvas& canvas, double seconds) {
    fitPond(placeOf(m_picture.width, m_picture.height, canvas));
    advance(seconds);
    fillAround(canvas, m_place, black);
    drawThroughWater(partOf(canvas, m_place), m_picture, m_pond, m_cell);
}

void Watery::pointer(int x, int y, double) {
    m_pond.touch(double(x - m_place.left) / m_cell, double(y - m_place.top) / m_cell, 4, 1.2);
    m_isStill = false;
}

double Watery::stillFor(double seconds) const {
    if (!m_isStill)
        return 0;
    double next = m_wanderers[0].touchesAt;
    for (const Wanderer& wanderer : m_wanderers)
        next = std::min(next, wanderer.touchesAt);
    return std::max(0.0, next - seconds);
}

} // namespace tarsel::players
