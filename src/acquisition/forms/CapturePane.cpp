// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/CapturePane.h"

#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int handleSize = 9; ///< logical pixels; as the next ones
constexpr int labelMargin = 5;
constexpr int magnifierGap = 24;  ///< between pointer and magnifier
constexpr int magnifiedSide = 21; ///< pixels that it shows, an odd number
constexpr int magnification = 8;
constexpr int largeStep = 10; ///< pixels by a key with Ctrl

const QColor shade(0, 0, 0, 130);
const QColor labelGround(20, 22, 24, 225);
const QColor frameColor(0x3A, 0x86, 0xD0);

Qt::CursorShape cursorOf(const RegionSelection::Grip& grip) {
    if (grip.isNone())
        return Qt::CrossCursor;
    if (grip.isMove())
        return Qt::SizeAllCursor;
    const bool across = grip.left || grip.right, down = grip.top || grip.bottom;
    if (across && down)
        return grip.left == grip.top ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    return across ? Qt::SizeHorCursor : Qt::SizeVerCursor;
}

QPoint directionOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return {-1, 0};
    case Qt::Key_Right:
        return {1, 0};
    case Qt::Key_Up:
        return {0, -1};
    case Qt::Key_Down:
        return {0, 1};
    default:
        return {};
    }
}

} // namespace

CapturePane::CapturePane(FrozenScreen& frozen, const QRect& area, QScreen* screen) :
    QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m_frozen(frozen),
    m_area(area) {
    setObjectName(QStringLiteral("capturePane"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setScreen(screen);
    setGeometry(screen->geometry());
    connect(&frozen, &FrozenScreen::changed, this, qOverload<>(&QWidget::update));
}

void CapturePane::cover() {
    showFullScreen();
    raise();
}

QPoint CapturePane::pixelAt(QPointF place) const {
    const double ratio = devicePixelRatioF();
    return m_area.topLeft() + QPoint(int(std::floor(place.x() * ratio)), int(std::floor(place.y() * ratio)));
}

int CapturePane::reach() const {
    return int(std::lround(handleSize / 2.0 * devicePixelRatioF()));
}

// Everything is drawn in pixels of the picture, which are those of the monitor.
void CapturePane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double ratio = devicePixelRatioF();
    painter.scale(1 / ratio, 1 / ratio);
    painter.drawImage(QPoint(), m_frozen.image(), m_area);
    painter.translate(-m_area.topLeft());
    drawSelection(painter);
    if (m_frozen.hasMagnifier() && m_area.contains(m_frozen.pointer()))
        drawMagnifier(painter);
}

void CapturePane::drawSelection(QPainter& painter) const {
    const QRect& rect = m_frozen.selection().rect();
    QRegion outside(m_area);
    if (!rect.isEmpty())
        outside -= rect;
    for (const QRect& part : outside)
        painter.fillRect(part, shade);
    if (rect.isEmpty())
        return;
    painter.setPen(QPen(frameColor, std::max(1.0, std::round(devicePixelRatioF()))));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    if (!m_frozen.selection().isHeld())
        drawHandles(painter, rect);
    drawSize(painter, rect);
}

void CapturePane::drawHandles(QPainter& painter, const QRect& rect) const {
    const int side = int(std::lround(handleSize * devicePixelRatioF()));
    const QPoint middle = rect.center();
    for (const int x : {rect.left(), middle.x(), rect.right()})
        for (const int y : {rect.top(), middle.y(), rect.bottom()}) {
            if (x == middle.x() && y == middle.y())
                continue;
            const QRect handle(x - side / 2, y - side / 2, side, side);
            painter.fillRect(handle, Qt::white);
            painter.fillRect(handle.adjusted(1, 1, -1, -1), frameColor);
        }
}

QSize CapturePane::labelSize(const QString& text) const {
    const double ratio = devicePixelRatioF();
    const QSize size = fontMetrics().size(0, text) + QSize(2, 2) * labelMargin;
    return {int(std::ceil(size.width() * ratio)), int(std::ceil(size.height() * ratio))};
}

void CapturePane::drawLabel(QPainter& painter, QPoint corner, const QString& text) const {
    const double ratio = devicePixelRatioF();
    const QRect box(corner, labelSize(text));
    painter.fillRect(box, labelGround);
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(ratio, ratio);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(0, 0, box.width() / ratio, box.height() / ratio), Qt::AlignCenter, text);
    painter.restore();
}

/// Above the rectangle where there is room, else in it; on the pane of its upper left corner.
void CapturePane::drawSize(QPainter& painter, const QRect& rect) const {
    if (!m_area.contains(rect.topLeft()))
        return;
    const QString text = tr("%1 × %2").arg(rect.width()).arg(rect.height());
    const QSize size = labelSize(text);
    const int gap = reach() + 2;
    QPoint corner(rect.left(), rect.top() - gap - size.height());
    if (corner.y() < m_area.top())
        corner = rect.topLeft() + QPoint(gap, gap);
    corner.setX(
        std::clamp(corner.x(), m_area.left(), std::max(m_area.left(), m_area.right() + 1 - size.width())));
    drawLabel(painter, corner, text);
}

/// Beside the pointer, on the side where there is room.
void CapturePane::drawMagnifier(QPainter& painter) const {
    const double ratio = devicePixelRatioF();
    const QPoint at = m_frozen.pointer();
    const int factor = std::max(2, int(std::lround(magnification * ratio)));
    const int side = magnifiedSide * factor;
    const int gap = int(magnifierGap * ratio);
    const QColor color = m_frozen.image().pixelColor(at);
    const QString text = tr("%1, %2   %3").arg(at.x()).arg(at.y()).arg(color.name().toUpper());
    const QSize label = labelSize(text);
    QPoint corner = at + QPoint(gap, gap);
    if (corner.x() + std::max(side, label.width()) > m_area.right())
        corner.setX(at.x() - gap - std::max(side, label.width()));
    if (corner.y() + side + label.height() > m_area.bottom())
        corner.setY(at.y() - gap - side - label.height());

    const QRect target(corner, QSize(side, side));
    const int half = magnifiedSide / 2;
    painter.fillRect(target.adjusted(-2, -2, 2, 2), labelGround);
    painter.drawImage(target, m_frozen.image(), QRect(at - QPoint(half, half), at + QPoint(half, half)));
    const QRect middle(corner + QPoint(half, half) * factor, QSize(factor, factor));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(middle.adjusted(-1, -1, 0, 0));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(middle.adjusted(-2, -2, 1, 1));
    drawLabel(painter, target.bottomLeft() + QPoint(-2, 2), text);
}

void CapturePane::showCursor() {
    if (!m_frozen.selection().isHeld())
        setCursor(cursorOf(m_frozen.selection().gripAt(m_frozen.pointer(), reach())));
}

void CapturePane::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_frozen.press(pixelAt(event->position()), reach());
    else if (event->button() == Qt::RightButton && !m_frozen.takeBack())
        Q_EMIT left();
}

void CapturePane::mouseMoveEvent(QMouseEvent* event) {
    m_frozen.pointTo(pixelAt(event->position()), event->modifiers() & Qt::ShiftModifier);
    showCursor();
}

void CapturePane::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_frozen.release();
    showCursor();
}

void CapturePane::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && m_frozen.selection().rect().contains(pixelAt(event->position())))
        Q_EMIT accepted();
}

void CapturePane::keyPressEvent(QKeyEvent* event) {
    const QPoint step =
        directionOf(event->key()) * (event->modifiers() & Qt::ControlModifier ? largeStep : 1);
    if (!step.isNull())
        (m_frozen.*
         (event->modifiers() & Qt::ShiftModifier ? &FrozenScreen::resize : &FrozenScreen::move))(step);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        Q_EMIT accepted();
    else if (event->key() == Qt::Key_Escape && !m_frozen.takeBack())
        Q_EMIT left();
    else
        QWidget::keyPressEvent(event);
}

void CapturePane::closeEvent(QCloseEvent* event) {
    event->ignore(); // all panes go together
    Q_EMIT left();
}

} // namespace tarsel
