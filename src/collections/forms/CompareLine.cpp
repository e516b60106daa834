// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/CompareLine.h"

#include "controls/FocusFrame.h"

#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>
#include <map>

namespace tarsel {

namespace {

constexpr int lineWidth = 15; ///< of what takes the mouse
constexpr int knobHeight = 34;

/// Assistive programs know it as something to drag.
QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* line = qobject_cast<CompareLine*>(object);
    return line ? new QAccessibleWidget(line, QAccessible::Grip) : nullptr;
}

} // namespace

CompareLine::CompareLine(QWidget* parent) : QWidget(parent) {
    QAccessible::installFactory(makeAccessible); // once, however often it is called
    setObjectName(QStringLiteral("CompareLine"));
    setAccessibleName(tr("Line between the picture before and after the task"));
    setToolTip(tr("Drag to compare: before is on the left, after on the right. The arrow keys move it too."));
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::StrongFocus);
    hide();
}

void CompareLine::placeAt(int x) {
    setGeometry(x - lineWidth / 2, 0, lineWidth, parentWidget()->height());
}

void CompareLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int middle = lineWidth / 2;
    painter.fillRect(middle - 1, 0, 3, height(), QColor(0, 0, 0, 110)); // seen on light pictures too
    painter.fillRect(middle, 0, 1, height(), Qt::white);
    const QRectF knob(0.5, (height() - knobHeight) / 2 + 0.5, lineWidth - 1, knobHeight - 1);
    painter.setPen(hasFocus() ? QPen(palette().highlight(), focusFrameWidth) : QPen(Qt::black));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(knob.marginsRemoved({0.5, 0.5, 0.5, 0.5}), 5, 5);
    painter.setPen(QPen(Qt::black, 1.4));
    for (const int side : {-1, 1}) {
        const QPointF tip(middle + 0.5 + side * 4.5, height() / 2.0);
        painter.drawPolyline(QPolygonF{tip + QPointF(-side * 2.5, -3), tip, tip + QPointF(-side * 2.5, 3)});
    }
}

void CompareLine::mousePressEvent(QMouseEvent* event) {
    event->setAccepted(event->button() == Qt::LeftButton);
    m_grip = int(event->position().x()) - lineWidth / 2;
}

void CompareLine::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton)
        Q_EMIT draggedTo(mapToParent(event->position().toPoint()).x() - m_grip);
}

void CompareLine::keyPressEvent(QKeyEvent* event) {
    static const std::map<int, int> steps{{Qt::Key_Left, -1},   {Qt::Key_Right, 1},   {Qt::Key_PageDown, -10},
                                          {Qt::Key_PageUp, 10}, {Qt::Key_Home, -100}, {Qt::Key_End, 100}};
    if (const auto step = steps.find(event->key()); step != steps.end())
        Q_EMIT stepped(step->second);
    else
        QWidget::keyPressEvent(event);
}

} // namespace tarsel
