// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QPainter>

class QWidget;

namespace tarsel {

// The look of an isExplorerBar, in the colours of the palette.

/// `percent` of one colour over another one.
QColor SoftColor(const QColor& color, const QColor& ground, int percent);

/// Fills a shape from top to bottom.
void DoGradient(QPainter& painter, const QPainterPath& shape, const QColor& from, const QColor& to);

/// What a title bar or an item shows of the pointer and the keyboard.
struct BarPartState {
    bool under = false; ///< the pointer is over it
    bool focus = false;
    bool marked = false; ///< a title with the heavier look; the chosen item
};

/// The ground of a title bar and the colour of its text. `open` says that a body is below it.
QColor paintTitleGround(QPainter& painter, const QWidget& title, BarPartState state, bool open);
QColor paintItemGround(QPainter& painter, const QWidget& item, BarPartState state);
void paintBodyGround(QPainter& painter, const QWidget& body);
/// An arrow that points down at 0, up at 1, and turns between them.
void paintArrow(QPainter& painter, QPointF centre, double side, double turned, const QColor& color);

} // namespace tarsel
