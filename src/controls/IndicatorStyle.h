// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QProxyStyle>

namespace tarsel {

/// Fusion with check boxes and radio buttons that are seen while they are off: its own outlines have almost
/// the colour of the window, in the dark above all. Boxes and buttons grow with the font.
class IndicatorStyle final : public QProxyStyle {
    Q_OBJECT
public:
    IndicatorStyle() : QProxyStyle(QStringLiteral("fusion")) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};

/// Where the application's style is Fusion; other styles draw as their desktop does.
void installIndicatorStyle();

} // namespace tarsel
