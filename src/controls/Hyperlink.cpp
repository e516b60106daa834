// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/Hyperlink.h"

#include "base/EventLoop.h"
#include "controls/AccessibleControls.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int divisorIn = 7;
constexpr int divisorOut = 4; ///< out is faster than in

int channelStep(int current, int target, int divisor) {
    return int(std::nearbyint(double(target - current) / divisor));
}

} // namespace

QColor fadeStep(QColor current, QColor target, int divisor) {
    const int red = channelStep(current.red(), target.red(), divisor);
    const int green = channelStep(current.green(), target.green(), divisor);
    const int blue = channelStep(current.blue(), target.blue(), divisor);
    if (red == 0 && green == 0 && blue == 0)
        return target;
    return {current.red() + red, current.green() + green, current.blue() + blue};
}

Hyperlink::Hyperlink(const QString& caption, QWidget* parent) : Hyperlink(parent) {
    setCaption(caption);
}

Hyperlink::Hyperlink(QWidget* parent) : QAbstractButton(parent), m_color(idle()) {
    installAccessibleControls();
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_fade.setInterval(50);
    connect(&m_fade, &QTimer::timeout, this, &Hyperlink::step);
}

void Hyperlink::setCaption(const QString& caption) {
    setText(caption);
    setAccessibleName(caption);
}

void Hyperlink::setForeColorIdle(QColor color) {
    m_idle = color;
    m_color = idle();
    update();
}

void Hyperlink::setAlignment(Qt::Alignment alignment) {
    m_alignment = alignment;
    update();
}

void Hyperlink::setShowRectangle(bool show) {
    m_showRectangle = show;
}

void Hyperlink::setShowCarrot(bool show) {
    m_showCarrot = show;
    updateGeometry();
}

QColor Hyperlink::idle() const {
    return m_idle.isValid() ? m_idle : palette().color(QPalette::WindowText);
}

void Hyperlink::DoMouseActions(bool over) {
    m_over = over;
    if (style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0) {
        m_fade.start();
        return;
    }
    m_color = over ? m_mouse : idle();
    update();
}

void Hyperlink::DoMouseOutFade(bool wait) {
    DoMouseActions(false);
    while (!wait && m_fade.isActive())
        service<EventLoop>().yield();
}

void Hyperlink::step() {
    const QColor target = m_over ? m_mouse : idle();
    m_color = fadeStep(m_color, target, m_over ? divisorIn : divisorOut);
    if (m_color == target)
        m_fade.stop();
    update();
}

void Hyperlink::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    DoMouseActions(true);
}

void Hyperlink::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    DoMouseActions(false);
}

void Hyperlink::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void Hyperlink::changeEvent(QEvent* event) {
    QAbstractButton::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_over)
        m_color = idle();
}

int Hyperlink::caretWidth() const {
    return m_showCarrot ? fontMetrics().height() * 3 / 4 : 0;
}

QSize Hyperlink::sizeHint() const {
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
    return text + QSize(caretWidth() + 6, 4);
}

QSize Hyperlink::minimumSizeHint() const {
    const QSize full = sizeHint();
    return {std::min(full.width(), caretWidth() + 12 * fontMetrics().averageCharWidth()), full.height()};
}

void Hyperlink::paintCaret(QPainter& painter) const {
    const double side = fontMetrics().height() / 4.0;
    QPainterPath caret(QPointF(4, height() / 2.0 - side));
    caret.lineTo(4 + side, height() / 2.0);
    caret.lineTo(4, height() / 2.0 + side);
    painter.fillPath(caret, m_color);
}

void Hyperlink::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont underlined = font();
    underlined.setUnderline(true); // a link is known by more than its colour
    painter.setFont(underlined);
    painter.setPen(isEnabled() ? m_color : palette().color(QPalette::Disabled, QPalette::WindowText));
    const QRect room = rect().adjusted(caretWidth() + 3, 0, -3, 0);
    painter.drawText(room, int(m_alignment | Qt::AlignVCenter) | Qt::TextShowMnemonic,
                     fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width(), Qt::TextShowMnemonic));
    if (m_showCarrot && m_over)
        paintCaret(painter);
    if (hasFocus())
        painter.setPen(palette().color(QPalette::Highlight));
    if (hasFocus() || (m_showRectangle && m_over))
        painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

} // namespace tarsel
