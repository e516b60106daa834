// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/BarButton.h"

#include <QMenu>
#include <QPainterPath>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace tarsel {

int BarButton::arrowWidth() const {
    return menu() ? fontMetrics().height() * 3 / 4 : 0;
}

void BarButton::setPopup(QMenu* menu) {
    setMenu(menu);
    setPopupMode(InstantPopup);
    menu->setNoReplayFor(this); // a click on the button of an open menu only closes it
    connect(menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
    disconnect(this, &QToolButton::pressed, this, nullptr); // the base class waits for the menu to close
    connect(this, &QToolButton::pressed, this, &BarButton::popUp);
}

void BarButton::popUp() {
    menu()->popup(mapToGlobal(rect().bottomLeft() + QPoint(0, 1)));
}

QSize BarButton::sizeHint() const {
    return QToolButton::sizeHint() + QSize(arrowWidth(), 0);
}

void BarButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.features &= ~QStyleOptionToolButton::HasMenu;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
    painter.setRenderHint(QPainter::Antialiasing);
    if (menu()) {
        const double side = fontMetrics().height() / 4.0;
        const QPointF centre(width() - arrowWidth() / 2.0 - 2, height() / 2.0);
        QPainterPath arrow(centre + QPointF(-side, -side / 2));
        arrow.lineTo(centre + QPointF(side, -side / 2));
        arrow.lineTo(centre + QPointF(0, side / 2));
        painter.fillPath(arrow, palette().color(QPalette::ButtonText));
    }
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

} // namespace tarsel
