// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/SelectionDrawing.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace tarsel {

namespace {

constexpr int dash = 4; ///< in widths of the line
const QColor dimming(0, 0, 0, 96);

int scaled(double logical, double ratio) {
    return std::max(1, int(std::lround(logical * ratio)));
}

/// White with black dashes.
void drawLine(QPainter& painter, const QPainterPath& line, double ratio) {
    QPen pen(Qt::white, scaled(1, ratio));
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setBrush(Qt::NoBrush);
    painter.strokePath(line, pen);
    pen.setColor(Qt::black);
    pen.setCapStyle(Qt::FlatCap);
    pen.setDashPattern({qreal(dash), qreal(dash)});
    painter.strokePath(line, pen);
}

/// From the first pixel to the last one; half a pixel in puts the line on pixels.
QPainterPath outline(const QRect& area, RubberBand::Shape shape) {
    const QRectF line = QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath path;
    if (shape == RubberBand::Shape::Ellipse)
        path.addEllipse(line);
    else
        path.addRect(line);
    return path;
}

void drawGrips(QPainter& painter, const RubberBand& band, QPoint origin, double ratio) {
    const int side = scaled(gripSide, ratio);
    for (int number = 1; number <= RubberBand::gripCount; ++number) {
        const auto [place, isActive] = band.grip(number);
        if (!isActive)
            continue;
        const QPoint corner = origin + place - QPoint(side / 2, side / 2);
        const int border = scaled(1, ratio);
        painter.fillRect(QRect(corner, QSize(side, side)), Qt::black);
        painter.fillRect(QRect(corner, QSize(side, side)).adjusted(border, border, -border, -border),
                         number == band.presentGrip() ? QColor(255, 200, 60) : QColor(Qt::white));
    }
}

} // namespace

void drawBand(QPainter& painter, const RubberBand& band, const QRect& picture, double ratio) {
    const QRect area = band.sorted().translated(picture.topLeft());
    painter.save();
    QPainterPath outside;
    outside.addRect(picture);
    painter.setRenderHint(QPainter::Antialiasing, band.shape() == RubberBand::Shape::Ellipse);
    if (band.shape() == RubberBand::Shape::Ellipse)
        outside.addEllipse(area);
    else
        outside.addRect(area);
    painter.fillPath(outside, dimming); // odd-even: the band is a hole
    drawLine(painter, outline(area, band.shape()), ratio);
    if (band.shape() == RubberBand::Shape::Ellipse && !band.isHeld())
        drawLine(painter, outline(area, RubberBand::Shape::Rectangle), ratio);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (!band.isHeld())
        drawGrips(painter, band, picture.topLeft(), ratio);
    painter.restore();
}

void drawTag(QPainter& painter, const QString& text, QPoint point, const QRect& area, double ratio) {
    painter.save();
    QFont font = QGuiApplication::font();
    font.setPixelSize(scaled(QFontInfo(font).pixelSize(), ratio));
    painter.setFont(font);
    const QFontMetrics metrics(font, painter.device());
    const int gap = scaled(16, ratio);
    const QSize size(metrics.horizontalAdvance(text) + gap, metrics.height() + gap / 2);
    QRect tag(point + QPoint(gap, gap), size);
    if (tag.right() > area.right())
        tag.moveRight(point.x() - gap / 2);
    if (tag.bottom() > area.bottom())
        tag.moveBottom(point.y() - gap / 2);
    tag.moveTopLeft({std::max(tag.left(), area.left()), std::max(tag.top(), area.top())});
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 255, 255, 160), scaled(1, ratio)));
    painter.setBrush(QColor(0, 0, 0, 200));
    painter.drawRoundedRect(tag, gap / 4.0, gap / 4.0);
    painter.setPen(Qt::white);
    painter.drawText(tag, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace tarsel
