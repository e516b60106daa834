// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/CapturePane.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int handleSize = 9; ///< logical pixels; as the next ones
constexpr int labelMargin = 5;
constexpr int magnifierGap = 24;  ///< between its place and the magnifier
constexpr int magnifiedSide = 21; ///< pixels that it shows, an odd number
constexpr int magnification = 8;
constexpr int largeStep = 10; ///< pixels by a key with Ctrl

const QColor shade(0, 0, 0, 130);
const QColor labelGround(20, 22, 24, 225);
const QColor labelEdge(160, 164, 168); ///< seen on a dark screen and on a light one
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

struct Room {
    int first, last;
};

/// Where something of that length begins beside a place: before or after it, where there is room.
int placeBeside(int place, int gap, int length, Room room, bool isBefore) {
    const int before = place - gap - length, after = place + gap;
    const bool fits = isBefore ? before >= room.first : after + length <= room.last;
    return isBefore == fits ? before : after;
}

} // namespace

CapturePane::CapturePane(FrozenScreen& frozen, const QRect& area, QScreen* screen) :
    QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), m_frozen(frozen),
    m_area(area) {
    setObjectName(QStringLiteral("capturePane"));
    setWindowTitle(tr("Select Region"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setScreen(screen);
    setGeometry(screen->geometry());
    auto* keys = new QShortcut(Qt::Key_F1, this); // which would open the manual elsewhere
    connect(keys, &QShortcut::activated, this, &CapturePane::keysWanted);
    connect(&frozen, &FrozenScreen::changed, this, &CapturePane::updateDrawn);
}

void CapturePane::cover() {
    m_drawn = drawn(); // by the first paint, which no change asks for
    showFullScreen();
    raise();
}

void CapturePane::pointTo(QPoint place) {
    const QRect covered = screen()->geometry();
    if (covered.contains(place))
        m_frozen.pointTo(m_area.topLeft() + (QPointF(place - covered.topLeft()) * ratio()).toPoint());
}

/// Pixels of the picture in one unit of the pane.
double CapturePane::ratio() const {
    const double own = devicePixelRatioF();
    const int width = screen()->geometry().width(); // rounded to units
    const bool isOwn = std::abs(m_area.width() - own * width) <= own;
    return isOwn || width == 0 ? own : double(m_area.width()) / width;
}

/// Of the place in the window, since Qt rounds that in a widget to whole units. Pixels that were divided by a
/// ratio come back a little smaller.
QPoint CapturePane::pixelOf(const QMouseEvent& event) const {
    constexpr double rounding = 1e-3;
    const QPointF place = event.scenePosition() * ratio();
    return m_area.topLeft() +
           QPoint(int(std::floor(place.x() + rounding)), int(std::floor(place.y() + rounding)));
}

/// The units in which any of the pixels is.
QRect CapturePane::placeOf(const QRect& pixels) const {
    const double ratio = this->ratio();
    const QRect own = pixels.translated(-m_area.topLeft());
    return QRectF(own.left() / ratio, own.top() / ratio, own.width() / ratio, own.height() / ratio)
        .toAlignedRect();
}

int CapturePane::reach() const {
    return int(std::lround(handleSize / 2.0 * ratio()));
}

CapturePane::Drawn CapturePane::drawn() const {
    return {m_frozen.selection().rect(), sizePlace(), magnifierPlace()};
}

/// Paints no more than has changed: a whole monitor takes too long to follow the pointer.
void CapturePane::updateDrawn() {
    const Drawn now = drawn();
    const int margin = 2 * reach() + 2; // of handles, and of the frames around everything
    QRegion changed = QRegion(m_drawn.selection) ^ now.selection;
    for (const Drawn& each : {m_drawn, now}) {
        const auto around = [&](const QRect& rect) {
            return rect.isEmpty() ? QRect() : rect.adjusted(-margin, -margin, margin, margin);
        };
        const QRect within = each.selection.adjusted(margin, margin, -margin, -margin);
        changed += QRegion(around(each.selection)) - within;
        changed += around(each.size);
        changed += around(each.magnifier);
    }
    m_drawn = now;
    for (const QRect& part : changed& m_area)
        update(placeOf(part));
}

// Everything is drawn in pixels of the picture, which are those of the monitor.
void CapturePane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, ratio() != devicePixelRatioF());
    painter.scale(1 / ratio(), 1 / ratio());
    painter.translate(-m_area.topLeft());
    painter.drawImage(m_area.topLeft(), m_frozen.image(), m_area);
    drawSelection(painter);
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
    painter.setPen(QPen(frameColor, std::max(1.0, std::round(ratio()))));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(-1, -1, 0, 0));
    if (!m_frozen.selection().isHeld())
        drawHandles(painter, rect);
    drawSize(painter);
}

void CapturePane::drawHandles(QPainter& painter, const QRect& rect) const {
    const int side = int(std::lround(handleSize * ratio()));
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
    const QSizeF size = QSizeF(fontMetrics().size(0, text) + QSize(2, 2) * labelMargin) * ratio();
    return {int(std::ceil(size.width())), int(std::ceil(size.height()))};
}

void CapturePane::drawPanel(QPainter& painter, const QRect& box) {
    painter.fillRect(box, labelGround);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(labelEdge);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
}

void CapturePane::drawText(QPainter& painter, const QRect& box, const QString& text) const {
    painter.save();
    painter.translate(box.topLeft());
    painter.scale(ratio(), ratio());
    painter.setPen(Qt::white);
    painter.drawText(QRectF(QPointF(), QSizeF(box.size()) / ratio()), Qt::AlignCenter, text);
    painter.restore();
}

QString CapturePane::sizeText() const {
    const QRect& rect = m_frozen.selection().rect();
    return tr("%1 × %2").arg(rect.width()).arg(rect.height());
}

/// Above the rectangle where there is room, else in it; on the pane of its upper left corner.
QRect CapturePane::sizePlace() const {
    const QRect& rect = m_frozen.selection().rect();
    if (rect.isEmpty() || !m_area.contains(rect.topLeft()))
        return {};
    const QSize size = labelSize(sizeText());
    const int gap = reach() + 2;
    QPoint corner(rect.left(), rect.top() - gap - size.height());
    if (corner.y() < m_area.top())
        corner = rect.topLeft() + QPoint(gap, gap);
    corner.setX(
        std::clamp(corner.x(), m_area.left(), std::max(m_area.left(), m_area.right() + 1 - size.width())));
    return {corner, size};
}

void CapturePane::drawSize(QPainter& painter) const {
    const QRect place = sizePlace();
    if (place.isEmpty())
        return;
    drawPanel(painter, place);
    drawText(painter, place, sizeText());
}

QString CapturePane::magnifierText() const {
    const QPoint at = m_frozen.magnified();
    const QString color = m_frozen.image().pixelColor(at).name().toUpper();
    return tr("%1, %2   %3").arg(at.x()).arg(at.y()).arg(color);
}

int CapturePane::magnifiedPixel() const {
    return std::max(2, int(std::lround(magnification * ratio())));
}

/// Beside its place and off the rectangle, on the side where there is room: the magnified pixels, below them
/// the text.
QRect CapturePane::magnifierPlace() const {
    const QPoint at = m_frozen.magnified();
    if (!m_frozen.hasMagnifier() || !m_area.contains(at))
        return {};
    const int side = magnifiedSide * magnifiedPixel();
    const int gap = int(magnifierGap * ratio());
    const QSize label = labelSize(magnifierText());
    const QSize size(std::max(side, label.width()), side + label.height());
    const QRect& rect = m_frozen.selection().rect();
    const bool isLeft = !rect.isEmpty() && at.x() <= rect.left();
    const bool isAbove = !rect.isEmpty() && at.y() <= rect.top();
    QPoint corner(placeBeside(at.x(), gap, size.width(), {m_area.left(), m_area.right()}, isLeft),
                  placeBeside(at.y(), gap, size.height(), {m_area.top(), m_area.bottom()}, isAbove));
    const QRect text = sizePlace();
    if (QRect(corner, size).intersects(text)) // to the other side of the size, or below it
        corner.setY(text.top() - gap - size.height() > m_area.top() ? text.top() - gap - size.height()
                                                                    : text.bottom() + gap);
    return {corner, size};
}

void CapturePane::drawMagnifier(QPainter& painter) const {
    const QRect place = magnifierPlace();
    if (place.isEmpty())
        return;
    const QPoint at = m_frozen.magnified();
    const int factor = magnifiedPixel();
    const QRect panel = place.adjusted(-2, -2, 2, 2);
    const QSize side = QSize(magnifiedSide, magnifiedSide) * factor;
    const QRect target(place.topLeft() + QPoint((place.width() - side.width()) / 2, 0), side);
    const int half = magnifiedSide / 2;
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false); // pixels stay squares
    drawPanel(painter, panel);
    painter.drawImage(target, m_frozen.image(), QRect(at - QPoint(half, half), at + QPoint(half, half)));
    const QRect middle(target.topLeft() + QPoint(half, half) * factor, QSize(factor, factor));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(middle.adjusted(-1, -1, 0, 0));
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(middle.adjusted(-2, -2, 1, 1));
    drawText(painter, {place.left(), target.bottom() + 1, place.width(), place.bottom() - target.bottom()},
             magnifierText());
}

void CapturePane::showCursor() {
    if (!m_frozen.selection().isHeld())
        setCursor(cursorOf(m_frozen.selection().gripAt(m_frozen.pointer(), reach())));
}

void CapturePane::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_frozen.press(pixelOf(*event), reach());
    else if (event->button() == Qt::RightButton)
        takeBack();
}

/// The drag, or else the rectangle, or else leaves.
void CapturePane::takeBack() {
    if (!m_frozen.takeBack())
        Q_EMIT left();
}

void CapturePane::mouseMoveEvent(QMouseEvent* event) {
    m_frozen.pointTo(pixelOf(*event), event->modifiers() & Qt::ShiftModifier);
    showCursor();
}

void CapturePane::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_frozen.release();
    showCursor();
}

/// Beside the rectangle nothing: the user meant to begin another.
void CapturePane::mouseDoubleClickEvent(QMouseEvent* event) {
    const QRect& rect = m_frozen.selection().rect();
    if (event->button() == Qt::LeftButton && (rect.isEmpty() || rect.contains(pixelOf(*event))))
        Q_EMIT accepted();
}

void CapturePane::keyPressEvent(QKeyEvent* event) {
    const QPoint step =
        directionOf(event->key()) * (event->modifiers() & Qt::ControlModifier ? largeStep : 1);
    if (!step.isNull())
        (m_frozen.*
         (event->modifiers() & Qt::ShiftModifier ? &FrozenScreen::resize : &FrozenScreen::move))(step);
    else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        runFocused();
    else if (event->key() == Qt::Key_Escape)
        takeBack();
    else if (event->key() == Qt::Key_M)
        m_frozen.toggleMagnifier();
    else if (event->key() == Qt::Key_V)
        Q_EMIT barMoved();
    else
        QWidget::keyPressEvent(event);
}

/// The button of the bar that has the focus; else the rectangle is taken.
void CapturePane::runFocused() {
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget()))
        button->click();
    else
        Q_EMIT accepted();
}

void CapturePane::closeEvent(QCloseEvent* event) {
    event->ignore(); // all panes go together
    Q_EMIT left();
}

} // namespace tarsel
