// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPixmap>
#include <QStyledItemDelegate>
#include <functional>

namespace tarsel {

/// Draws the cells of a ListControl: the selection over one or all columns, and the frame of a drop target.
class RowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool fullRow = false;
    int dropRow = -1;
    QSize cellSize; ///< of a thumbnail with its name
    /// Makes the pixmap of what the list holds as a row's picture, when the row is painted.
    std::function<QPixmap(const QVariant& picture)> pixmapOf;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Shows the full text of a cell that is too narrow for it.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
    void paintSelection(QPainter& painter, QStyleOptionViewItem cell, const QModelIndex& index) const;
    bool setPicture(QStyleOptionViewItem& option, const QVariant& picture) const;
};

} // namespace tarsel
