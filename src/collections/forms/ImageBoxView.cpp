// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/ImageBoxView.h"

#include "collections/forms/PaintRendered.h"
#include "controls/FocusFrame.h"

#include <QAccessibleWidget>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <cmath>
#include <utility>

namespace tarsel {

namespace {

constexpr int patience = 400; ///< milliseconds
constexpr int lineStep = 40;  ///< logical pixels that an arrow scrolls

/// Assistive programs know the view as a picture.
QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* view = qobject_cast<ImageBoxView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::Graphic) : nullptr;
}

Size sizeOf(const QImage& image) {
    return {image.width(), image.height()};
}

} // namespace

ImageBoxView::ImageBoxView(ImageBox& box, QWidget* parent) : QAbstractScrollArea(parent), m_box(box) {
    QAccessible::installFactory(makeAccessible); // once, however often it is called
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("Preview of the selected picture"));
    setHint(tr("No picture"));
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    horizontalScrollBar()->setObjectName(QStringLiteral("hsbView"));
    horizontalScrollBar()->setAccessibleName(tr("Scroll the preview left and right"));
    verticalScrollBar()->setObjectName(QStringLiteral("vsbView"));
    verticalScrollBar()->setAccessibleName(tr("Scroll the preview up and down"));
    connect(&m_renderer, &ScreenRenderer::rendered, this, &ImageBoxView::take);
    connect(&m_selection, &SelectionOverlay::cursorChanged, this, &ImageBoxView::showCursor);
    connect(&m_selection, &SelectionOverlay::armedChanged, this, &ImageBoxView::describe);
    connect(&m_selection, &SelectionOverlay::regionSelected, this, &ImageBoxView::describe);
    m_patience.setSingleShot(true);
    m_patience.setInterval(patience);
    connect(&m_patience, &QTimer::timeout, viewport(), qOverload<>(&QWidget::update));
}

// --- what is shown

void ImageBoxView::setHint(const QString& text) {
    m_hint = text;
    viewport()->update();
}

void ImageBoxView::expect(const QString& path) {
    m_expected = path;
    m_patience.start();
}

void ImageBoxView::pictureChanged(const PreviewPicture& shown) {
    m_patience.stop();
    m_expected.clear();
    m_shown = shown;
    ++m_number;
    if (!m_shown.picture.isNull()) {
        requestRendering();
        return;
    }
    m_renderer.request({}); // lets go of the picture
    m_isRendering = false;
    take({});
}

/// The size that the picture to be shown has on the screen, or that stands in for it until all pixels are
/// there.
Size ImageBoxView::wantedSize() const {
    const Size inside = container();
    return stretchedSize(m_shown.size, inside.width, inside.height);
}

void ImageBoxView::requestRendering() {
    const QSize screenPixels = screen()->size() * devicePixelRatioF();
    m_isRendering = true;
    m_renderer.request(
        {m_number, m_shown, {screenPixels.width(), screenPixels.height()}, wantedSize(), needsFull()});
}

void ImageBoxView::take(const ScreenRenderer::Rendered& rendered) {
    if (!m_shown.picture.isNull() && rendered.number != m_number)
        return;
    m_isRendering = false;
    m_drawn = rendered;
    const bool isAnother = std::exchange(m_drawnPath, m_shown.path) != m_shown.path;
    describe();
    if (isAnother)
        subFixedSizeTiff(m_isBestFit);
    else
        FitImage();
}

/// For assistive programs.
void ImageBoxView::describe() {
    const QString picture = m_shown.picture.isNull() ? m_shown.notice : QFileInfo(m_shown.path).fileName();
    const QString selection = m_selection.description();
    setAccessibleDescription(selection.isEmpty() ? picture : selection);
}

bool ImageBoxView::isSharp() const {
    if (m_shown.picture.isNull())
        return true;
    return isCurrent() && !m_shown.isReduced &&
           (m_isBestFit ? sizeOf(m_drawn.image) == m_placement.drawn() : !m_drawn.full.isNull());
}

// --- its place

Size ImageBoxView::devicePixels(QSize logical) const {
    const double ratio = devicePixelRatioF();
    return {int(logical.width() * ratio), int(logical.height() * ratio)};
}

Size ImageBoxView::container() const {
    return devicePixels(viewport()->size());
}

PicturePlacement ImageBoxView::placementIn(Size container) const {
    return {m_drawn.size, container, m_isBestFit};
}

void ImageBoxView::subFixedSizeTiff(bool bestFit) {
    m_isBestFit = bestFit;
    m_placement.scrollTo({0, 0});
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    FitImage();
}

void ImageBoxView::FitImage() {
    setBars();
    m_placement = placementIn(container());
    m_placement.scrollTo({horizontalScrollBar()->value(), verticalScrollBar()->value()});
    m_selection.setPlacement(m_placement);
    m_box.StretchToFit = m_isBestFit;
    m_box.Zoom = m_placement.zoom();
    m_box.ControlWidth = float(m_placement.drawn().width);
    m_box.ControlHeight = float(m_placement.drawn().height);
    const bool isComplete = sizeOf(m_drawn.image) == wantedSize() && (!needsFull() || !m_drawn.full.isNull());
    if (!m_shown.picture.isNull() && m_drawn.number == m_number && !m_isRendering && !isComplete)
        requestRendering();
    showCursor();
    viewport()->update();
    Q_EMIT zoomChanged();
}

/// A bar that appears takes room from the picture, which places it again. Where all fits without bars, none
/// is kept by the room that the other one takes.
void ImageBoxView::setBars() {
    const Size without = devicePixels(maximumViewportSize());
    const Size drawn = placementIn(without).drawn();
    const bool isInside = drawn.width <= without.width && drawn.height <= without.height;
    const Size room = isInside ? without : container();
    const PicturePlacement place = placementIn(room);
    setBar(*horizontalScrollBar(), place.horizontalMaximum(), room.width);
    setBar(*verticalScrollBar(), place.verticalMaximum(), room.height);
}

void ImageBoxView::setBar(QScrollBar& bar, int maximum, int page) const {
    bar.setSingleStep(int(lineStep * devicePixelRatioF()));
    bar.setPageStep(page);
    bar.setRange(0, maximum);
}

void ImageBoxView::resizeEvent(QResizeEvent*) {
    FitImage();
    Q_EMIT containerResized();
}

void ImageBoxView::scrollContentsBy(int, int) {
    m_placement.scrollTo({horizontalScrollBar()->value(), verticalScrollBar()->value()});
    m_selection.setPlacement(m_placement);
    viewport()->update();
}

// --- painting

void ImageBoxView::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), aroundPicture(palette()));
    painter.save();
    enterDevicePixels(painter);
    if (!m_drawn.image.isNull())
        paintRendered(painter, m_drawn, m_placement, m_isBestFit);
    m_selection.paint(painter);
    painter.restore();
    paintNotice(painter);
    if (hasFocus())
        drawFocusFrame(painter, palette(), viewport()->rect());
}

void ImageBoxView::paintNotice(QPainter& painter) const {
    const QString text = strip();
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect all = viewport()->rect().marginsRemoved({12, 12, 12, 12});
    if (m_drawn.image.isNull()) {
        const QString reason =
            m_shown.notice.isEmpty() ? m_hint : tr("This picture can't be shown.\n%1").arg(m_shown.notice);
        painter.drawText(all, Qt::AlignCenter | Qt::TextWordWrap, reason);
    }
    if (text.isEmpty())
        return;
    constexpr int flags = Qt::AlignLeft | Qt::AlignBottom | Qt::TextWordWrap;
    const QRect area = painter.boundingRect(all, flags, text);
    painter.fillRect(area.marginsAdded({6, 4, 6, 4}), palette().color(QPalette::Window));
    painter.drawText(area, flags, text);
}

/// What is said over the picture; empty for nothing.
QString ImageBoxView::strip() const {
    if (!m_expected.isEmpty() && !m_patience.isActive())
        return tr("Reading %1 ...").arg(QFileInfo(m_expected).fileName());
    if (!m_drawn.image.isNull() && !m_shown.notice.isEmpty())
        return tr("This file is damaged: %1").arg(m_shown.notice);
    return {};
}

void ImageBoxView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void ImageBoxView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// --- input

bool ImageBoxView::canScroll() const {
    return m_placement.horizontalMaximum() > 0 || m_placement.verticalMaximum() > 0;
}

void ImageBoxView::showCursor() {
    if (const auto pointer = m_selection.cursor())
        viewport()->setCursor(*pointer);
    else if (canScroll())
        viewport()->setCursor(Qt::OpenHandCursor);
    else
        viewport()->unsetCursor();
}

void ImageBoxView::keyPressEvent(QKeyEvent* event) {
    if (m_selection.key(*event))
        return;
    const QPoint before = m_placement.scrolled();
    if (event->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier) || !handleKey(event->key()))
        QAbstractScrollArea::keyPressEvent(event);
    tellScrolledFrom(before);
}

void ImageBoxView::tellScrolledFrom(QPoint before) {
    if (m_placement.scrolled() != before)
        Q_EMIT scrolledHere();
}

bool ImageBoxView::handleKey(int key) {
    const bool pagesScroll = m_placement.verticalMaximum() > 0;
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
    case Qt::Key_Minus:
        zoomAt(QRectF(viewport()->rect()).center(), key == Qt::Key_Minus);
        return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
        if (pagesScroll)
            return false;
        [[fallthrough]];
    case Qt::Key_Space:
    case Qt::Key_Backspace:
        Q_EMIT neighbourWanted(key == Qt::Key_PageDown || key == Qt::Key_Space ? 1 : -1);
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        for (QScrollBar* bar : {horizontalScrollBar(), verticalScrollBar()})
            bar->setValue(key == Qt::Key_Home ? 0 : bar->maximum());
        return true;
    default:
        return false;
    }
}

void ImageBoxView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        const QPoint before = m_placement.scrolled();
        QAbstractScrollArea::wheelEvent(event);
        tellScrolledFrom(before);
        return;
    }
    if (event->angleDelta().y() != 0)
        zoomAt(event->position(), event->angleDelta().y() < 0);
    event->accept();
}

void ImageBoxView::mousePressEvent(QMouseEvent* event) {
    if (m_selection.press(*event) || event->button() != Qt::LeftButton || !canScroll())
        return;
    m_panned = event->position();
    viewport()->setCursor(Qt::ClosedHandCursor);
}

void ImageBoxView::mouseMoveEvent(QMouseEvent* event) {
    if (m_selection.move(*event) || !m_panned || !(event->buttons() & Qt::LeftButton) || !canScroll())
        return;
    const QPoint moved =
        devicePoint(*std::exchange(m_panned, event->position()) - event->position()).toPoint();
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + moved.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() + moved.y());
}

void ImageBoxView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        m_panned.reset();
    m_selection.release(*event);
    showCursor();
}

/// The point under the pointer stays there.
void ImageBoxView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (!m_selection.press(*event))
        zoomAt(event->position(), !m_isBestFit);
}

void ImageBoxView::zoomAt(QPointF position, bool bestFit) {
    if (m_selection.isHeld())
        return;
    const QPointF pointer = devicePoint(position);
    const QPointF point = m_placement.toPicture(pointer);
    Q_EMIT zoomModeWanted(bestFit);
    PicturePlacement scrolled = m_placement;
    scrolled.bring(point, pointer);
    horizontalScrollBar()->setValue(scrolled.scrolled().x());
    verticalScrollBar()->setValue(scrolled.scrolled().y());
    Q_EMIT scrolledHere();
}

} // namespace tarsel
