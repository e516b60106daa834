// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ThumbnailView.h"

#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <utility>

namespace tarsel {

ThumbnailView::ThumbnailView(QWidget* parent) : QListView(parent) {
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setSelectionRectVisible(true);
    setWordWrap(false);
    setSpacing(4);
}

void ThumbnailView::setSizes(QSize picture, QSize cell) {
    const QModelIndex held = isVisible() ? rowToHold() : QModelIndex();
    const int top = visualRect(held).top();
    setIconSize(picture);
    setGridSize(cell);
    if (!held.isValid())
        return;
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + visualRect(held).top() - top);
}

QModelIndex ThumbnailView::rowToHold() const {
    const auto isInView = [this](const QModelIndex& index) {
        return index.isValid() && visualRect(index).intersects(viewport()->rect());
    };
    if (isInView(currentIndex()))
        return currentIndex();
    return indexAt(QPoint(gridSize().width() / 2, gridSize().height() / 2));
}

void ThumbnailView::hideEvent(QHideEvent* event) {
    QListView::hideEvent(event);
    if (event->spontaneous())
        return;
    m_held = rowToHold();
    m_heldTop = visualRect(m_held).top();
}

/// On its way back the view may be narrow or low for a moment, which moves the rows.
void ThumbnailView::showEvent(QShowEvent* event) {
    QListView::showEvent(event);
    if (m_held.isValid())
        QTimer::singleShot(0, this, &ThumbnailView::bringBack);
}

void ThumbnailView::bringBack() {
    const QPersistentModelIndex held = std::exchange(m_held, {});
    if (!held.isValid())
        return;
    executeDelayedItemsLayout();
    verticalScrollBar()->setValue(verticalScrollBar()->value() + visualRect(held).top() - m_heldTop);
    if (selectionModel()->isSelected(currentIndex())) // another one, perhaps
        scrollTo(currentIndex());
}

void ThumbnailView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return QListView::wheelEvent(event);
    event->accept();
    Q_EMIT zoomed(event->angleDelta().y());
}

/// A change of the rows drops the layout, which is made again later; painting before that would show an empty
/// list.
void ThumbnailView::paintEvent(QPaintEvent* event) {
    executeDelayedItemsLayout();
    QListView::paintEvent(event);
}

void ThumbnailView::initViewItemOption(QStyleOptionViewItem* option) const {
    QListView::initViewItemOption(option);
    option->decorationPosition = QStyleOptionViewItem::Top;
    option->decorationAlignment = Qt::AlignCenter;
    option->displayAlignment = Qt::AlignCenter;
    option->showDecorationSelected = false;
}

/// Cells keep their size: unlike the base class, this lays nothing out. A row out of view costs no repaint.
void ThumbnailView::dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) {
    const bool oneRow = first.row() == last.row();
    if (oneRow && isVisible() && !visualRect(first).intersects(viewport()->rect()))
        return;
    QAbstractItemView::dataChanged(first, last, roles);
}

} // namespace tarsel
