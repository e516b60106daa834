// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ElidedLabel.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyle>

namespace tarsel {

ElidedLabel::ElidedLabel(QWidget* parent, Qt::TextElideMode mode) : QLabel(parent), m_mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("MM")), QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), m_mode, room.width());
    style()->drawItemText(&painter, room, int(alignment()), palette(), isEnabled(), shown, foregroundRole());
}

} // namespace tarsel
