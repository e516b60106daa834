// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FocusSlider.h"

#include <QPainter>

namespace tarsel {

void FocusSlider::paintEvent(QPaintEvent* event) {
    QSlider::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

} // namespace tarsel
