// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/IndicatorStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

namespace tarsel {

void IndicatorStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                   const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    const bool isFocused = option->state & State_HasFocus && option->state & State_KeyboardFocusChange;
    if ((!isRound && element != PE_IndicatorCheckBox) || isFocused)
        return;
    QColor line = option->palette.color(QPalette::WindowText);
    line.setAlphaF(0.6F);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(line);
    painter->setBrush(Qt::NoBrush);
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isRound)
        painter->drawEllipse(outline);
    else
        painter->drawRect(outline);
    painter->restore();
}

void installIndicatorStyle() {
    if (QApplication::style()->name() == QLatin1String("fusion"))
        QApplication::setStyle(new IndicatorStyle);
}

} // namespace tarsel
