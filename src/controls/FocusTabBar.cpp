// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FocusTabBar.h"

#include "controls/FocusFrame.h"

#include <QPainter>

namespace tarsel {

void FocusTabBar::paintEvent(QPaintEvent* event) {
    QTabBar::paintEvent(event);
    QPainter painter(this);
    if (hasFocus())
        drawFocusFrame(painter, palette(), tabRect(currentIndex()) & rect());
}

} // namespace tarsel
