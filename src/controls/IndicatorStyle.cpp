// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/IndicatorStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

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

int IndicatorStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    const bool isIndicator = metric == PM_IndicatorWidth || metric == PM_IndicatorHeight ||
                             metric == PM_ExclusiveIndicatorWidth || metric == PM_ExclusiveIndicatorHeight;
    return isIndicator && widget ? std::max(usual, widget->fontMetrics().height() * 4 / 5) : usual;
}

void installIndicatorStyle() {
    if (QApplication::style()->name() == QLatin1String("fusion"))
        QApplication::setStyle(new IndicatorStyle);
}

} // namespace tarsel
