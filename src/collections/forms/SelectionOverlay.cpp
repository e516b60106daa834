// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/SelectionOverlay.h"

#include "collections/forms/SelectionDrawing.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int largeStep = 10; ///< times that of an arrow key

std::optional<QPoint> arrowOf(int key) {
    switch (key) {
    case Qt::Key_Left:
        return QPoint(-1, 0);
    case Qt::Key_Right:
        return QPoint(1, 0);
    case Qt::Key_Up:
        return QPoint(0, -1);
    case Qt::Key_Down:
        return QPoint(0, 1);
    default:
        return std::nullopt;
    }
}

/// The pointer of a grip says in which direction it moves.
Qt::CursorShape cursorOf(const RubberBand& band) {
    const QPoint size = band.end() - band.start();
    const bool fallsToTheRight = (size.x() < 0) == (size.y() < 0);
    switch (band.presentGrip()) {
    case 1:
    case 4:
        return fallsToTheRight ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    case 2:
    case 3:
        return fallsToTheRight ? Qt::SizeBDiagCursor : Qt::SizeFDiagCursor;
    case 5:
    case 6:
        return Qt::SizeVerCursor;
    case 7:
    case 8:
        return Qt::SizeHorCursor;
    default:
        return Qt::SizeAllCursor;
    }
}

} // namespace

SelectionOverlay::SelectionOverlay(QWidget& canvas) : QObject(&canvas), m_canvas(canvas) {}

void SelectionOverlay::arm(Tool tool) {
    m_tool = tool;
    m_isPressed = m_movedByKey = false;
    m_band.remove();
    if (isForBand())
        m_band.arm(tool == Tool::Ellipse ? RubberBand::Shape::Ellipse : RubberBand::Shape::Rectangle);
    m_canvas.setMouseTracking(tool != Tool::None);
    show();
    Q_EMIT armedChanged();
}

void SelectionOverlay::cancel() {
    if (isIdle())
        return;
    clear();
    Q_EMIT cancelled();
}

void SelectionOverlay::select(const QRectF& area) {
    arm(Tool::Rectangle);
    m_start = area.topLeft();
    m_end = area.bottomRight();
    m_band.draw(onDisplay(m_start), onDisplay(m_end), m_band.shape());
    show();
}

/// From pixels of the picture.
QPoint SelectionOverlay::onDisplay(QPointF point) const {
    return (m_placement.toContainer(point) - m_placement.place().topLeft()).toPoint();
}

void SelectionOverlay::show() {
    m_canvas.update();
    Q_EMIT cursorChanged();
}

void SelectionOverlay::setPlacement(const PicturePlacement& placement) {
    const bool isResized = m_placement.drawn() != placement.drawn();
    m_placement = placement;
    if (!isResized || !m_band.isVisible())
        return;
    m_band.draw(onDisplay(m_start), onDisplay(m_end), m_band.shape());
    Q_EMIT regionChanged(m_band.start(), m_band.end());
    if (!std::exchange(m_isPressed, false))
        return;
    Q_EMIT regionSelected(); // the drag has ended with the size that it began in
    Q_EMIT ended();
}

// --- points

double SelectionOverlay::ratio() const {
    return m_canvas.devicePixelRatioF();
}

/// As large as the grip that is seen.
int SelectionOverlay::reach() const {
    return std::max(RubberBand::gripReach, int(std::lround((gripSide / 2 + 1) * ratio())));
}

QPoint SelectionOverlay::displayPoint(QPointF logical) const {
    const QPointF device = logical * ratio();
    const QPoint place =
        QPoint(int(std::floor(device.x())), int(std::floor(device.y()))) - m_placement.place().topLeft();
    const Size drawn = m_placement.drawn();
    return {std::clamp(place.x(), 0, drawn.width), std::clamp(place.y(), 0, drawn.height)};
}

/// A point that has a pixel; the edge to the right of the last one and the edge below it have none.
QPoint SelectionOverlay::pixelPoint(QPointF logical) const {
    const QPoint place = displayPoint(logical);
    const Size drawn = m_placement.drawn();
    return {std::min(place.x(), drawn.width - 1), std::min(place.y(), drawn.height - 1)};
}

bool SelectionOverlay::isOnPicture(QPointF logical) const {
    const QPointF device = logical * ratio();
    return m_placement.place().contains(int(std::floor(device.x())), int(std::floor(device.y())));
}

/// As a crop at this place rounds it.
QPoint SelectionOverlay::inPicture(QPoint display) const {
    const QPointF place = m_placement.toPicture(display + m_placement.place().topLeft());
    return {int(std::nearbyint(place.x())), int(std::nearbyint(place.y()))};
}

QSize SelectionOverlay::sizeInPicture() const {
    const QRect band = m_band.sorted();
    const QPoint first = inPicture(band.topLeft());
    const QPoint last = inPicture(band.topLeft() + QPoint(band.width(), band.height()));
    return {last.x() - first.x(), last.y() - first.y()};
}

// --- the mouse

bool SelectionOverlay::press(const QMouseEvent& event) {
    if (m_band.isHeld() && event.button() == Qt::RightButton)
        endDrag(event.position()); // for the menu
    if (isIdle() || event.button() != Qt::LeftButton)
        return false;
    m_pointer = (event.position() * ratio()).toPoint();
    if (isPoint())
        return pressPoint(event.position());
    m_isPressed = true;
    m_band.press(displayPoint(event.position()), reach());
    const auto isBeside = [this] {
        return m_band.presentGrip() == RubberBand::nothing && m_band.state() != RubberBand::State::Dragging;
    };
    if (isBeside() && m_isLasting && isOnPicture(event.position())) {
        m_band.arm(m_band.shape());
        m_band.press(displayPoint(event.position()), reach());
    }
    if (isBeside()) {
        m_band.release(); // beside the band the picture can be dragged
        m_isPressed = false;
        return false;
    }
    regionMoved();
    return true;
}

/// Beside the picture there is nothing to pick.
bool SelectionOverlay::pressPoint(QPointF logical) {
    m_isPressed = m_tool == Tool::Location || isOnPicture(logical);
    if (m_isPressed && m_tool == Tool::ColorPick)
        Q_EMIT colorSelected(pixelPoint(logical));
    return true;
}

bool SelectionOverlay::move(const QMouseEvent& event) {
    if (isIdle())
        return false;
    if (m_isPressed && !(event.buttons() & Qt::LeftButton)) {
        // Released elsewhere, as over a menu.
        const QMouseEvent released(QEvent::MouseButtonRelease, event.position(), event.globalPosition(),
                                   Qt::LeftButton, event.buttons(), event.modifiers());
        return release(released);
    }
    m_pointer = (event.position() * ratio()).toPoint();
    if (!m_isPressed && (event.buttons() & Qt::LeftButton))
        return false;
    const int grip = m_band.presentGrip();
    const bool wasByKey = std::exchange(m_movedByKey, false);
    if (m_tool == Tool::ColorPick && !m_isPressed && isOnPicture(event.position()))
        Q_EMIT colorHovered(pixelPoint(event.position()));
    m_band.moveTo(displayPoint(event.position()), m_placement.drawn(), reach());
    if (m_band.isHeld())
        regionMoved();
    else if (m_tool == Tool::Location || m_band.presentGrip() != grip || wasByKey)
        show();
    return true;
}

bool SelectionOverlay::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || !m_isPressed)
        return false;
    if (isPoint()) {
        releasePoint(event.position());
        return true;
    }
    m_band.moveTo(displayPoint(event.position()), m_placement.drawn(), reach());
    endDrag(event.position());
    return true;
}

void SelectionOverlay::releasePoint(QPointF logical) {
    m_isPressed = false;
    const bool isLocation = m_tool == Tool::Location;
    if (isLocation && !isOnPicture(logical))
        return;
    arm(Tool::None);
    if (isLocation)
        Q_EMIT locationSelected(pixelPoint(logical));
    Q_EMIT ended();
}

/// After a click without a drag the tool still waits for one.
void SelectionOverlay::endDrag(QPointF pointer) {
    m_isPressed = false;
    if (m_band.state() == RubberBand::State::Dragging && m_band.start() == m_band.end()) {
        arm(m_tool);
        if (m_isLasting)
            Q_EMIT regionDropped();
        return;
    }
    m_band.release();
    m_band.moveTo(displayPoint(pointer), m_placement.drawn(), reach()); // which may be on a grip
    regionMoved();
    Q_EMIT regionSelected();
    Q_EMIT ended();
}

void SelectionOverlay::regionMoved() {
    const auto inPicture = [this](QPoint point) {
        return m_placement.toPicture(point + m_placement.place().topLeft());
    };
    m_start = inPicture(m_band.start());
    m_end = inPicture(m_band.end());
    Q_EMIT regionChanged(m_band.start(), m_band.end());
    show();
}

std::optional<Qt::CursorShape> SelectionOverlay::cursor() const {
    if (isPoint() || m_band.state() == RubberBand::State::Armed ||
        m_band.state() == RubberBand::State::Dragging)
        return Qt::CrossCursor;
    if (!m_band.isVisible() || m_band.presentGrip() == RubberBand::nothing)
        return m_isLasting && m_band.isVisible() ? std::optional(Qt::CrossCursor) : std::nullopt;
    return cursorOf(m_band);
}

// --- keys

bool SelectionOverlay::key(const QKeyEvent& event) {
    if (isIdle() || m_isPressed)
        return false;
    if (event.key() == Qt::Key_Escape) {
        if (m_isLasting && !m_band.isVisible())
            return false;
        cancel();
        return true;
    }
    const std::optional<QPoint> arrow = arrowOf(event.key());
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (m_band.state() == RubberBand::State::Armed && (arrow || isReturn) && !modifiers) {
        drawCentred();
        return true;
    }
    return arrow && m_band.isVisible() && handleArrow(*arrow, modifiers);
}

bool SelectionOverlay::handleArrow(QPoint direction, Qt::KeyboardModifiers modifiers) {
    if (modifiers & ~(Qt::ShiftModifier | Qt::ControlModifier))
        return false;
    const int times = modifiers & Qt::ControlModifier ? largeStep : 1;
    const QPoint step(direction.x() * keyStep().x() * times, direction.y() * keyStep().y() * times);
    if (modifiers & Qt::ShiftModifier)
        m_band.grow(step, m_placement.drawn(), leastSize());
    else
        m_band.shift(step, m_placement.drawn());
    selectByKey(!(modifiers & Qt::ShiftModifier));
    return true;
}

void SelectionOverlay::selectByKey(bool isShifted) {
    m_movedByKey = true;
    m_isShifted = isShifted;
    regionMoved();
    Q_EMIT regionSelected();
    Q_EMIT ended();
}

/// Display pixels of one pixel of the picture. Where the display is smaller than the picture it is one of the
/// display: a selection has no finer place.
QPoint SelectionOverlay::keyStep() const {
    const QPointF one = m_placement.toContainer(QPointF(1, 1)) - m_placement.place().topLeft();
    return {std::max(1, int(std::lround(one.x()))), std::max(1, int(std::lround(one.y())))};
}

/// So large that a pixel of the picture remains, however the edges are rounded.
QPoint SelectionOverlay::leastSize() const {
    const QPointF one = m_placement.toContainer(QPointF(1, 1)) - m_placement.place().topLeft();
    const auto least = [](double length) { return length > 1 ? int(length) + 1 : 1; };
    return {least(one.x()), least(one.y())};
}

/// Half as wide and high as what is to be seen of the picture.
void SelectionOverlay::drawCentred() {
    const QRect place = m_placement.place();
    const QRect seen = place.intersected({QPoint(), m_canvas.size() * ratio()}).translated(-place.topLeft());
    const QPoint margin(seen.width() / 4, seen.height() / 4);
    m_band.draw(seen.topLeft() + margin, seen.topLeft() + QPoint(seen.width(), seen.height()) - margin,
                m_band.shape());
    selectByKey(false);
}

// --- what is seen and said

QString SelectionOverlay::description() const {
    if (m_band.state() == RubberBand::State::Armed)
        return tr("Drag over the picture, or press Return for a selection in its middle.");
    if (!m_band.isVisible())
        return {};
    if (m_wording)
        return m_wording(selected());
    const QPoint place = inPicture(m_band.sorted().topLeft());
    const QSize size = sizeInPicture();
    return tr("Selection of %1 × %2 pixels at %3, %4")
        .arg(size.width())
        .arg(size.height())
        .arg(place.x())
        .arg(place.y());
}

QString SelectionOverlay::tag() const {
    const auto placeText = [this](QPoint display) {
        const QPoint place = inPicture(display);
        return QStringLiteral("%1, %2").arg(place.x()).arg(place.y());
    };
    if (m_tool == Tool::Location && m_placement.place().contains(m_pointer))
        return placeText(m_pointer - m_placement.place().topLeft());
    const bool isMoved = m_band.state() == RubberBand::State::Moving || (m_movedByKey && m_isShifted);
    if (!isMoved && !m_band.isHeld() && !m_movedByKey)
        return {};
    if (m_wording)
        return m_wording(selected());
    if (isMoved)
        return placeText(m_band.sorted().topLeft());
    const QSize size = sizeInPicture();
    return QStringLiteral("%1 × %2").arg(size.width()).arg(size.height());
}

QPoint SelectionOverlay::endOnCanvas() const {
    return m_band.sorted().bottomRight() + m_placement.place().topLeft();
}

void SelectionOverlay::paint(QPainter& painter) const {
    if (m_band.isVisible())
        drawBand(painter, m_band, m_placement.place(), ratio());
    if (const QString text = tag(); !text.isEmpty())
        drawTag(painter, text, m_movedByKey ? endOnCanvas() : m_pointer,
                QRect(QPoint(), m_canvas.size() * ratio()), ratio());
}

} // namespace tarsel
