// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Splitter.h"

#include "controls/SplitterBar.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {
constexpr int splitterWidth = 6;
}

Splitter::Splitter(Qt::Orientation orientation, QWidget* first, QWidget* second, QWidget* parent) :
    QSplitter(orientation, parent) {
    addWidget(first);
    addWidget(second);
    setChildrenCollapsible(false);
    setHandleWidth(splitterWidth);
}

QSplitterHandle* Splitter::createHandle() {
    return new SplitterBar(orientation(), *this);
}

void Splitter::setSplitterPosition(int percent) {
    m_position = percent;
    apply();
}

void Splitter::setSplitterRange(int min, int max) {
    m_min = std::clamp(min, 0, 100);
    m_max = std::clamp(max, m_min, 100);
    apply();
}

void Splitter::resizeEvent(QResizeEvent* event) {
    QSplitter::resizeEvent(event);
    apply();
}

void Splitter::showEvent(QShowEvent* event) {
    QSplitter::showEvent(event);
    apply();
}

int Splitter::length() const {
    return std::max(100, (orientation() == Qt::Horizontal ? width() : height()) - handleWidth());
}

int Splitter::withinBounds(int place) const {
    return std::clamp(place, (length() * m_min + 99) / 100, length() * m_max / 100);
}

int Splitter::barPlace() const {
    return sizes()[0];
}

void Splitter::apply() {
    const int share = std::clamp(m_position, m_min, m_max);
    setSizes({length() * share / 100, length() - length() * share / 100});
}

void Splitter::moveBar(int place) {
    if (place == barPlace())
        return;
    moveSplitter(place, 1);
    const int percent = int(std::lround(100.0 * barPlace() / length()));
    m_position = std::clamp(percent, m_min, m_max);
    Q_EMIT positionChanged(m_position);
}

void Splitter::showGhost(int place) {
    setRubberBand(place);
}

} // namespace tarsel
