// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/forms/OptimizedPanes.h"

#include "base/Conversions.h"
#include "collections/forms/BeforeView.h"
#include "collections/forms/CompareLine.h"
#include "collections/forms/ImageBoxView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <limits>

namespace tarsel {

namespace {

/// The point in the picture's own box, which a scroll bar moves to minus its value. Device pixels.
QPointF inBox(const ImageBoxView& view, QPointF position) {
    return position * view.devicePixelRatioF() +
           QPointF(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
}

void pan(QScrollBar& bar, double start, double pointer) {
    if (bar.maximum() == 0)
        return;
    if (const auto value = pannedValue(bar.value(), start, pointer, bar.maximum()))
        bar.setValue(*value);
}

} // namespace

std::optional<int> pannedValue(int value, double start, double pointer, int maximum) {
    const double moved = roundHalfEven(value + start - roundHalfEven(pointer));
    if (moved < 0 || moved > std::min(maximum, int(std::numeric_limits<qint16>::max())))
        return std::nullopt;
    return int(moved);
}

OptimizedPanes::OptimizedPanes(QWidget* parent) :
    QWidget(parent), m_left(makePane("ibOriginal", tr("Original"), m_original, "hsOriginal", "vsOriginal")),
    m_right(makePane("ibOptimized", tr("Optimized"), m_optimized, "hsOptimized", "vsOptimized")),
    m_before(new BeforeView(*m_right.view)) {
    connect(m_right.view, &ImageBoxView::zoomChanged, this, [this] {
        if (m_right.view->isCurrent())
            Q_EMIT optimizedSeen();
    });
    for (const QScrollBar* bar : {m_right.view->horizontalScrollBar(), m_right.view->verticalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, &OptimizedPanes::visibleAreaChanged);
    connect(m_right.view, &ImageBoxView::containerResized, this, &OptimizedPanes::visibleAreaChanged);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_left.holder, 1);
    row->addWidget(m_right.holder, 1);
    auto* line = m_right.view->viewport()->findChild<CompareLine*>();
    line->setAccessibleName(tr("Line between the original and the optimized picture"));
    line->setToolTip(tr("Drag to compare: the original is on the left, the optimized picture on the right. "
                        "The arrow keys move it too."));
}

OptimizedPanes::Pane OptimizedPanes::makePane(const char* name, const QString& title, ImageBox& box,
                                              const char* horizontal, const char* vertical) {
    auto* holder = new QWidget(this);
    auto* column = new QVBoxLayout(holder);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(3);
    auto* caption = new QLabel(title, holder);
    QFont font = caption->font();
    font.setBold(true);
    caption->setFont(font);
    auto* view = new ImageBoxView(box, holder);
    view->setObjectName(QLatin1String(name));
    view->setAccessibleName(title);
    view->horizontalScrollBar()->setObjectName(QLatin1String(horizontal));
    view->verticalScrollBar()->setObjectName(QLatin1String(vertical));
    view->viewport()->installEventFilter(this);
    connect(view, &ImageBoxView::zoomModeWanted, this, &OptimizedPanes::wantZoom);
    connect(view, &ImageBoxView::scrolledHere, this, [this, view] { lineUp(*view); });
    connect(view, &ImageBoxView::zoomChanged, this, &OptimizedPanes::zoomChanged);
    connect(view, &ImageBoxView::zoomChanged, this, &OptimizedPanes::showCursor); // the view has set its own
    column->addWidget(caption);
    column->addWidget(view, 1);
    return {holder, caption, view};
}

void OptimizedPanes::showOriginal(const PreviewPicture& original) {
    m_path = original.path;
    m_originalWidth = original.size.width;
    m_left.view->pictureChanged(original);
    m_before->setPicture(original);
}

void OptimizedPanes::showOptimized(PreviewPicture optimized) {
    optimized.path = m_path;
    m_optimizedWidth = optimized.size.width;
    m_right.view->pictureChanged(optimized);
}

void OptimizedPanes::setLayoutTo(PreviewLayout layout) {
    m_layout = layout;
    const bool isSplit = layout == PreviewLayout::Split;
    m_left.holder->setVisible(!isSplit);
    m_right.caption->setText(isSplit ? tr("Original | Optimized") : tr("Optimized"));
    m_before->compare(isSplit);
    for (const Pane& pane : {m_left, m_right})
        pane.view->subFixedSizeTiff(layout != PreviewLayout::ActualSize);
    Q_EMIT visibleAreaChanged();
}

/// By a double click or a key. The two sides of a line keep their layout.
void OptimizedPanes::wantZoom(bool bestFit) {
    if (m_layout == PreviewLayout::Split)
        m_right.view->subFixedSizeTiff(bestFit);
    else
        Q_EMIT layoutWanted(bestFit ? PreviewLayout::BestFit : PreviewLayout::ActualSize);
}

/// Takes the other pane to the same place, also where the file has fewer pixels than the original.
void OptimizedPanes::lineUp(const ImageBoxView& leading) {
    const ImageBoxView& other = &leading == m_left.view ? *m_right.view : *m_left.view;
    const Size from = leading.placement().drawn(), to = other.placement().drawn();
    const auto follow = [](const QScrollBar& bar, int length, QScrollBar& follower, int followingLength) {
        follower.setValue(int(std::lround(double(bar.value()) * followingLength / std::max(length, 1))));
    };
    follow(*leading.horizontalScrollBar(), from.width, *other.horizontalScrollBar(), to.width);
    follow(*leading.verticalScrollBar(), from.height, *other.verticalScrollBar(), to.height);
}

void OptimizedPanes::setPicking(bool picking) {
    m_isPicking = picking;
    showCursor();
}

VisibleArea OptimizedPanes::visibleArea() const {
    const PicturePlacement& placement = m_right.view->placement();
    const Size pane = m_right.view->container();
    const QRect seen = placement.place().intersected({0, 0, pane.width, pane.height});
    return {m_right.view->isBestFit(), pane, seen.translated(-placement.place().topLeft())};
}

double OptimizedPanes::zoom() const {
    return m_layout == PreviewLayout::Split ? m_optimized.Zoom * m_optimizedWidth / m_originalWidth
                                            : m_original.Zoom;
}

// --- dragging, and picking of a colour

ImageBoxView* OptimizedPanes::viewOf(const QObject* viewport) const {
    for (const Pane& pane : {m_left, m_right})
        if (viewport == pane.view->viewport())
            return pane.view;
    return nullptr;
}

/// Both panes behave as one.
bool OptimizedPanes::eventFilter(QObject* watched, QEvent* event) {
    const ImageBoxView* view = viewOf(watched);
    if (!view)
        return QWidget::eventFilter(watched, event);
    const auto* mouse = dynamic_cast<const QMouseEvent*>(event);
    if (!mouse)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(*view, *mouse);
    case QEvent::MouseMove:
        if (m_isPointing)
            pointAt(*view, mouse->position());
        else
            subPan(*view, mouse->position());
        return true;
    case QEvent::MouseButtonRelease:
        if (mouse->button() == Qt::LeftButton)
            subPanEnd();
        return true;
    case QEvent::MouseButtonDblClick:
        return m_isPicking && press(*view, *mouse);
    default:
        return false;
    }
}

bool OptimizedPanes::press(const ImageBoxView& view, const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return false;
    m_isPointing = m_isPicking;
    if (m_isPointing)
        pointAt(view, event.position());
    else
        subPanStart(view, event.position());
    return true;
}

void OptimizedPanes::subPanStart(const ImageBoxView& view, QPointF position) {
    m_panned = inBox(view, position);
    showCursor();
}

void OptimizedPanes::subPan(const ImageBoxView& view, QPointF position) {
    if (!m_panned)
        return;
    const QPointF pointer = inBox(view, position);
    for (const Pane& pane : {m_left, m_right}) {
        pan(*pane.view->horizontalScrollBar(), m_panned->x(), pointer.x());
        pan(*pane.view->verticalScrollBar(), m_panned->y(), pointer.y());
    }
}

void OptimizedPanes::subPanEnd() {
    m_panned.reset();
    const bool wasPointing = std::exchange(m_isPointing, false);
    showCursor();
    if (wasPointing)
        Q_EMIT picked();
}

/// The optimized picture has the pixels of the original at the same places.
void OptimizedPanes::pointAt(const ImageBoxView& view, QPointF position) {
    const QPointF point = view.placement().toPicture(position * view.devicePixelRatioF());
    Q_EMIT pointedAt({int(std::floor(point.x())), int(std::floor(point.y()))});
}

void OptimizedPanes::showCursor() {
    for (const Pane& pane : {m_left, m_right}) {
        QWidget* viewport = pane.view->viewport();
        const bool scrolls =
            pane.view->horizontalScrollBar()->maximum() > 0 || pane.view->verticalScrollBar()->maximum() > 0;
        if (m_isPicking)
            viewport->setCursor(Qt::CrossCursor);
        else if (scrolls)
            viewport->setCursor(m_panned ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
        else
            viewport->unsetCursor();
    }
}

} // namespace tarsel
