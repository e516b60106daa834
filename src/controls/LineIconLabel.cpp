// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/LineIconLabel.h"

#include <QPainter>
#include <utility>

namespace tarsel {

LineIconLabel::LineIconLabel(QIcon icon, QWidget* parent, double lines) :
    QWidget(parent), m_icon(std::move(icon)), m_lines(lines) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize LineIconLabel::sizeHint() const {
    const int side = int(fontMetrics().height() * m_lines);
    return {side, side};
}

void LineIconLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_icon.paint(&painter, rect());
}

} // namespace tarsel
