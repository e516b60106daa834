// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PictureButton.h"

#include <QPainter>

namespace tarsel {

void PictureButton::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    if (!isChecked())
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 2, 2);
}

} // namespace tarsel
