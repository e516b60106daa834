// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/RegionSelection.h"

#include <algorithm>
#include <cstdlib>

namespace tarsel {

namespace {

bool isNear(int at, int side, int reach) {
    return std::abs(at - side) <= reach;
}

/// The rectangle with its sides in order.
QRect ordered(int left, int top, int right, int bottom) {
    return {QPoint(std::min(left, right), std::min(top, bottom)),
            QPoint(std::max(left, right), std::max(top, bottom))};
}

} // namespace

QPoint RegionSelection::within(QPoint pixel) const {
    return {std::clamp(pixel.x(), m_screen.left(), m_screen.right()),
            std::clamp(pixel.y(), m_screen.top(), m_screen.bottom())};
}

RegionSelection::Grip RegionSelection::gripAt(QPoint pixel, int reach) const {
    if (m_rect.isEmpty() || !m_rect.adjusted(-reach, -reach, reach, reach).contains(pixel))
        return {};
    Grip grip;
    // Of a rectangle narrower than the reach the nearer side counts.
    grip.left = isNear(pixel.x(), m_rect.left(), reach);
    grip.right = isNear(pixel.x(), m_rect.right(), reach);
    if (grip.left && grip.right)
        (2 * pixel.x() < m_rect.left() + m_rect.right() ? grip.right : grip.left) = false;
    grip.top = isNear(pixel.y(), m_rect.top(), reach);
    grip.bottom = isNear(pixel.y(), m_rect.bottom(), reach);
    if (grip.top && grip.bottom)
        (2 * pixel.y() < m_rect.top() + m_rect.bottom() ? grip.bottom : grip.top) = false;
    if (grip.isNone() && m_rect.contains(pixel))
        return {true, true, true, true};
    return grip;
}

void RegionSelection::press(QPoint pixel, int reach) {
    const QPoint from = within(pixel);
    const Grip grip = gripAt(from, reach);
    m_held = Held{grip, from, m_rect, grip.isNone()};
}

void RegionSelection::drag(QPoint pixel, bool square) {
    if (!m_held)
        return;
    m_held->moved = m_held->moved || pixel != m_held->from;
    if (!m_held->moved)
        return;
    if (m_held->isNew) {
        m_rect = draggedNew(within(pixel), square);
        return;
    }
    const QPoint by = pixel - m_held->from;
    const Grip& grip = m_held->grip;
    m_rect = m_held->before;
    if (grip.isMove()) {
        move(by);
        return;
    }
    m_rect =
        ordered(m_rect.left() + (grip.left ? by.x() : 0), m_rect.top() + (grip.top ? by.y() : 0),
                m_rect.right() + (grip.right ? by.x() : 0), m_rect.bottom() + (grip.bottom ? by.y() : 0)) &
        m_screen;
}

QRect RegionSelection::draggedNew(QPoint pixel, bool square) const {
    const QPoint from = m_held->from;
    if (!square)
        return ordered(from.x(), from.y(), pixel.x(), pixel.y());
    const QPoint by = pixel - from;
    const int wanted = std::max(std::abs(by.x()), std::abs(by.y()));
    const int roomX = by.x() < 0 ? from.x() - m_screen.left() : m_screen.right() - from.x();
    const int roomY = by.y() < 0 ? from.y() - m_screen.top() : m_screen.bottom() - from.y();
    const int side = std::min({wanted, roomX, roomY});
    return ordered(from.x(), from.y(), from.x() + (by.x() < 0 ? -side : side),
                   from.y() + (by.y() < 0 ? -side : side));
}

void RegionSelection::release() {
    if (m_held && !m_held->moved)
        m_rect = m_held->before;
    m_held.reset();
}

void RegionSelection::cancel() {
    if (m_held)
        m_rect = m_held->before;
    m_held.reset();
}

void RegionSelection::move(QPoint by) {
    if (m_rect.isEmpty())
        return;
    m_rect.translate(std::clamp(by.x(), m_screen.left() - m_rect.left(), m_screen.right() - m_rect.right()),
                     std::clamp(by.y(), m_screen.top() - m_rect.top(), m_screen.bottom() - m_rect.bottom()));
}

void RegionSelection::resize(QPoint by) {
    if (m_rect.isEmpty())
        return;
    m_rect.setRight(std::clamp(m_rect.right() + by.x(), m_rect.left(), m_screen.right()));
    m_rect.setBottom(std::clamp(m_rect.bottom() + by.y(), m_rect.top(), m_screen.bottom()));
}

} // namespace tarsel
