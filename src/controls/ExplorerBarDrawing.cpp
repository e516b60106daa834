// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ExplorerBarDrawing.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QWidget>

namespace tarsel {

namespace {

constexpr double radius = 4;

QColor frameColor(const QPalette& palette) {
    return SoftColor(palette.color(QPalette::WindowText), palette.color(QPalette::Window), 25);
}

/// Rounded at the top, and at the bottom as well when nothing is below.
QPainterPath titleShape(const QRectF& area, bool open) {
    QPainterPath shape;
    shape.addRoundedRect(open ? area.adjusted(0, 0, 0, 2 * radius) : area, radius, radius);
    QPainterPath clip;
    clip.addRect(area);
    return shape.intersected(clip);
}

void paintFocus(QPainter& painter, const QRectF& area, const QColor& color) {
    painter.setPen(QPen(color, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(area.adjusted(1, 1, -1, -1), radius - 1, radius - 1);
}

} // namespace

QColor SoftColor(const QColor& color, const QColor& ground, int percent) {
    const auto mixed = [&](int top, int bottom) { return (top * percent + bottom * (100 - percent)) / 100; };
    return {mixed(color.red(), ground.red()), mixed(color.green(), ground.green()),
            mixed(color.blue(), ground.blue())};
}

void DoGradient(QPainter& painter, const QPainterPath& shape, const QColor& from, const QColor& to) {
    const QRectF bounds = shape.boundingRect();
    QLinearGradient gradient(bounds.topLeft(), bounds.bottomLeft());
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    painter.fillPath(shape, gradient);
}

QColor paintTitleGround(QPainter& painter, const QWidget& title, BarPartState state, bool open) {
    const QPalette& palette = title.palette();
    const QColor accent = palette.color(QPalette::Highlight);
    const QColor button = palette.color(QPalette::Button);
    const int amount = (state.marked ? 60 : 12) + (state.under ? 12 : 0);
    const QRectF area = QRectF(title.rect()).adjusted(0.5, 0.5, -0.5, open ? 0.5 : -0.5);
    const QPainterPath shape = titleShape(area, open);
    DoGradient(painter, shape, SoftColor(accent, button, amount), SoftColor(accent, button, amount + 12));
    painter.setPen(frameColor(palette));
    painter.drawPath(shape);
    if (state.focus)
        paintFocus(painter, title.rect(), state.marked ? palette.color(QPalette::HighlightedText) : accent);
    return palette.color(state.marked ? QPalette::HighlightedText : QPalette::ButtonText);
}

QColor paintItemGround(QPainter& painter, const QWidget& item, BarPartState state) {
    const QPalette& palette = item.palette();
    const QColor accent = palette.color(QPalette::Highlight);
    QPainterPath shape;
    shape.addRoundedRect(item.rect(), radius, radius);
    if (state.marked)
        painter.fillPath(shape, accent);
    else if (state.under)
        painter.fillPath(shape, SoftColor(accent, palette.color(QPalette::Base), 20));
    if (state.focus)
        paintFocus(painter, item.rect(), state.marked ? palette.color(QPalette::WindowText) : accent);
    return palette.color(state.marked ? QPalette::HighlightedText : QPalette::WindowText);
}

void paintBodyGround(QPainter& painter, const QWidget& body) {
    const QPalette& palette = body.palette();
    painter.fillRect(body.rect(),
                     SoftColor(palette.color(QPalette::Base), palette.color(QPalette::Window), 50));
    painter.setPen(frameColor(palette));
    painter.drawRect(QRectF(body.rect()).adjusted(0.5, -1, -0.5, -0.5));
}

void paintArrow(QPainter& painter, QPointF centre, double side, double turned, const QColor& color) {
    painter.save();
    painter.translate(centre);
    painter.rotate(180 * turned);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(
        QPolygonF({QPointF(-side, -side / 2), QPointF(0, side / 2), QPointF(side, -side / 2)}));
    painter.restore();
}

} // namespace tarsel
