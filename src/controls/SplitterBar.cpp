// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/SplitterBar.h"

#include "controls/AccessibleControls.h"
#include "controls/Splitter.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {
constexpr int keyStepPercent = 2;
}

SplitterBar::SplitterBar(Qt::Orientation orientation, Splitter& splitter) :
    QSplitterHandle(orientation, &splitter), m_splitter(splitter) {
    installAccessibleControls();
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(orientation == Qt::Horizontal ? tr("Divider between left and right")
                                                    : tr("Divider between top and bottom"));
}

void SplitterBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_grip = along(event->position().toPoint());
    m_ghost = m_splitter.barPlace();
    m_splitter.showGhost(*m_ghost);
}

void SplitterBar::mouseMoveEvent(QMouseEvent* event) {
    if (!m_ghost)
        return;
    m_ghost = legal(along(mapToParent(event->position().toPoint())) - m_grip);
    m_splitter.showGhost(*m_ghost);
}

void SplitterBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_ghost)
        return;
    m_splitter.showGhost(-1);
    m_splitter.moveBar(*std::exchange(m_ghost, std::nullopt));
}

void SplitterBar::keyPressEvent(QKeyEvent* event) {
    const bool sideBySide = orientation() == Qt::Horizontal;
    const int step = std::max(1, m_splitter.length() * keyStepPercent / 100);
    int place = m_splitter.barPlace();
    if (event->key() == (sideBySide ? Qt::Key_Left : Qt::Key_Up))
        place -= step;
    else if (event->key() == (sideBySide ? Qt::Key_Right : Qt::Key_Down))
        place += step;
    else if (event->key() == Qt::Key_Home)
        place = 0;
    else if (event->key() == Qt::Key_End)
        place = m_splitter.length();
    else
        return QSplitterHandle::keyPressEvent(event);
    m_splitter.moveBar(legal(place));
}

void SplitterBar::paintEvent(QPaintEvent* event) {
    QSplitterHandle::paintEvent(event);
    if (hasFocus())
        QPainter(this).fillRect(rect(), palette().color(QPalette::Highlight));
}

int SplitterBar::along(QPoint point) const {
    return orientation() == Qt::Horizontal ? point.x() : point.y();
}

/// Within the percentages, and no pane smaller than it can be.
int SplitterBar::legal(int place) {
    return closestLegalPosition(m_splitter.withinBounds(place));
}

} // namespace tarsel
