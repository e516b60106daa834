// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ExplorerBarParts.h"

#include "controls/AccessibleControls.h"

#include <QKeyEvent>
#include <QPainter>

namespace tarsel {

namespace {
constexpr int margin = 6;
constexpr int gap = 6;
} // namespace

void SetHandCur(QWidget& widget) {
    widget.setCursor(Qt::PointingHandCursor);
}

ExplorerBarPart::ExplorerBarPart(QWidget* parent) : QAbstractButton(parent) {
    installAccessibleControls();
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    SetHandCur(*this);
}

BarPartState ExplorerBarPart::state(bool marked) const {
    return {underMouse() && isEnabled(), hasFocus(), marked};
}

void ExplorerBarPart::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
        Q_EMIT leftByKey(event->key());
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        click();
        break;
    default:
        QAbstractButton::keyPressEvent(event);
    }
}

// --- title

ExplorerBarTitle::ExplorerBarTitle(bool isHeavy, QWidget* parent) :
    ExplorerBarPart(parent), m_isHeavy(isHeavy) {
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void ExplorerBarTitle::setOpened(double share) {
    m_opened = share;
    update();
}

QSize ExplorerBarTitle::sizeHint() const {
    const int height = fontMetrics().height() * (m_isHeavy ? 9 : 7) / 4;
    return {fontMetrics().horizontalAdvance(text().trimmed()) + 3 * height, height};
}

/// As in a tree, left closes and right opens.
void ExplorerBarTitle::keyPressEvent(QKeyEvent* event) {
    const int turning = isChecked() ? Qt::Key_Left : Qt::Key_Right;
    if (event->key() == turning)
        click();
    else
        ExplorerBarPart::keyPressEvent(event);
}

void ExplorerBarTitle::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = paintTitleGround(painter, *this, state(m_isHeavy), m_opened > 0);
    int left = margin + 2;
    if (!icon().isNull()) {
        icon().paint(&painter, left, 0, iconSide(), height());
        left += iconSide() + gap;
    }
    const QRect area(left, 0, width() - left - height(), height());
    painter.setPen(ink);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text().trimmed(), Qt::ElideRight, area.width()));
    paintArrow(painter, QPointF(width() - height() / 2.0, height() / 2.0), fontMetrics().height() / 4.0,
               m_opened, ink);
}

// --- item

ExplorerBarItem::ExplorerBarItem(QWidget* parent) : ExplorerBarPart(parent) {}

QSize ExplorerBarItem::sizeHint() const {
    return {fontMetrics().horizontalAdvance(text()) + iconSide() + gap + 2 * margin,
            fontMetrics().height() * 3 / 2};
}

void ExplorerBarItem::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ink = paintItemGround(painter, *this, state(isChecked()));
    if (!isEnabled())
        ink = palette().color(QPalette::Disabled, QPalette::WindowText);
    const QIcon::Mode mode = !isEnabled() ? QIcon::Disabled : isChecked() ? QIcon::Selected : QIcon::Normal;
    icon().paint(&painter, margin, 0, iconSide(), height(), Qt::AlignCenter, mode);
    const int left = margin + iconSide() + gap;
    const QRect area(left, 0, width() - left - margin, height());
    painter.setPen(ink);
    painter.drawText(area, Qt::AlignVCenter | Qt::AlignLeft,
                     fontMetrics().elidedText(text(), Qt::ElideRight, area.width()));
}

} // namespace tarsel
