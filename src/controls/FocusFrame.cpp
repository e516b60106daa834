// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FocusFrame.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace tarsel {

void drawFocusFrame(QPainter& painter, const QPalette& palette, const QRect& place) {
    painter.setPen(QPen(palette.color(QPalette::Highlight), focusFrameWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(place.adjusted(1, 1, -1, -1));
}

FocusFrame::FocusFrame(QWidget& contents, QWidget* parent) : QWidget(parent), m_contents(contents) {
    auto* box = new QVBoxLayout(this);
    box->setContentsMargins(focusFrameWidth, focusFrameWidth, focusFrameWidth, focusFrameWidth);
    box->addWidget(&contents);
    contents.installEventFilter(this);
}

void FocusFrame::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_contents.hasFocus())
        drawFocusFrame(painter, palette(), rect());
}

bool FocusFrame::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

} // namespace tarsel
