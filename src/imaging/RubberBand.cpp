// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/RubberBand.h"

#include <algorithm>
#include <cstdlib>

namespace tarsel {

namespace {

constexpr int roomForMiddles = 15; ///< on shorter edges the corners need it all

} // namespace

void RubberBand::arm(Shape shape) {
    remove();
    m_shape = shape;
    m_state = State::Armed;
}

void RubberBand::remove() {
    const Shape shape = m_shape;
    *this = {};
    m_shape = shape;
}

void RubberBand::press(QPoint point, int reach) {
    if (m_state == State::Armed) {
        m_x1 = m_x2 = point.x();
        m_y1 = m_y2 = point.y();
        m_state = State::Dragging;
    } else if (m_state == State::Drawn) {
        m_present = hit(point, reach);
        m_moveOffset = point - start();
        m_state = m_present == inside ? State::Moving : State::Resizing;
    }
}

void RubberBand::moveTo(QPoint point, Size picture, int reach) {
    switch (m_state) {
    case State::Idle:
    case State::Armed:
        break;
    case State::Dragging:
        m_x2 = point.x();
        m_y2 = point.y();
        break;
    case State::Drawn:
        m_present = hit(point, reach);
        break;
    case State::Resizing:
        drag(point);
        break;
    case State::Moving:
        moveStart(point - m_moveOffset, picture);
        break;
    }
}

void RubberBand::release() {
    if (isVisible())
        m_state = State::Drawn;
}

void RubberBand::draw(QPoint start, QPoint end, Shape shape) {
    arm(shape);
    press(start);
    m_x2 = end.x();
    m_y2 = end.y();
    release();
}

/// The grip that is held takes the point.
void RubberBand::drag(QPoint point) {
    const int held = m_present;
    const auto isOneOf = [held](std::initializer_list<int> grips) {
        return std::ranges::find(grips, held) != grips.end();
    };
    if (isOneOf({1, 3, 7}))
        m_x1 = point.x();
    if (isOneOf({2, 4, 8}))
        m_x2 = point.x();
    if (isOneOf({1, 2, 5}))
        m_y1 = point.y();
    if (isOneOf({3, 4, 6}))
        m_y2 = point.y();
}

bool RubberBand::moveStart(QPoint start, Size picture) {
    const QPoint first = sorted().topLeft() + start - this->start();
    if (first.x() < 0 || first.x() + sorted().width() > picture.width || first.y() < 0 ||
        first.y() + sorted().height() > picture.height)
        return false;
    m_x2 += start.x() - m_x1;
    m_y2 += start.y() - m_y1;
    m_x1 = start.x();
    m_y1 = start.y();
    return true;
}

bool RubberBand::shift(QPoint by, Size picture) {
    return moveStart(start() + by, picture);
}

void RubberBand::grow(QPoint by, Size picture, QPoint least) {
    const auto [left, right] = std::minmax({m_x1, m_x2});
    const auto [top, bottom] = std::minmax({m_y1, m_y2});
    (m_x1 > m_x2 ? m_x1 : m_x2) =
        std::clamp(right + by.x(), std::min(left + least.x(), picture.width), picture.width);
    (m_y1 > m_y2 ? m_y1 : m_y2) =
        std::clamp(bottom + by.y(), std::min(top + least.y(), picture.height), picture.height);
}

QRect RubberBand::sorted() const {
    return {std::min(m_x1, m_x2), std::min(m_y1, m_y2), std::abs(m_x2 - m_x1), std::abs(m_y2 - m_y1)};
}

RubberBand::Grip RubberBand::grip(int number) const {
    const QPoint middle((m_x1 + m_x2) / 2, (m_y1 + m_y2) / 2);
    const bool isWide = std::abs(m_x2 - m_x1) > roomForMiddles;
    const bool isHigh = std::abs(m_y2 - m_y1) > roomForMiddles;
    switch (number) {
    case 1:
        return {{m_x1, m_y1}, true};
    case 2:
        return {{m_x2, m_y1}, true};
    case 3:
        return {{m_x1, m_y2}, true};
    case 4:
        return {{m_x2, m_y2}, true};
    case 5:
        return {{middle.x(), m_y1}, isWide};
    case 6:
        return {{middle.x(), m_y2}, isWide};
    case 7:
        return {{m_x1, middle.y()}, isHigh};
    case 8:
        return {{m_x2, middle.y()}, isHigh};
    default:
        return {};
    }
}

int RubberBand::hit(QPoint point, int reach) const {
    for (int number = 1; number <= gripCount; ++number)
        if (const auto [place, isActive] = grip(number);
            isActive && std::abs(place.x() - point.x()) < reach && std::abs(place.y() - point.y()) < reach)
            return number;
    const QRect band = sorted();
    const bool isInside = point.x() >= band.x() && point.x() <= band.x() + band.width() &&
                          point.y() >= band.y() && point.y() <= band.y() + band.height();
    return isInside ? inside : nothing;
}

} // namespace tarsel
