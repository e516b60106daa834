// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Splitter.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {
constexpr int splitterMin = 10;
constexpr int splitterMax = 90;
} // namespace

Splitter::Splitter(Qt::Orientation orientation, QWidget* first, QWidget* second, QWidget* parent) :
    QSplitter(orientation, parent) {
    addWidget(first);
    addWidget(second);
    setChildrenCollapsible(false);
    setHandleWidth(6);
    connect(this, &QSplitter::splitterMoved, this, &Splitter::takePosition);
}

void Splitter::setSplitterPosition(int percent) {
    m_position = percent;
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

void Splitter::apply() {
    const int share = std::clamp(m_position, splitterMin, splitterMax);
    const int length = std::max(100, (orientation() == Qt::Horizontal ? width() : height()) - handleWidth());
    setSizes({length * share / 100, length - length * share / 100});
}

void Splitter::takePosition() {
    const QList<int> parts = sizes();
    const int length = parts[0] + parts[1];
    if (length > 0)
        m_position = std::clamp(int(std::lround(100.0 * parts[0] / length)), splitterMin, splitterMax);
}

} // namespace tarsel
