// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStyledItemDelegate>

namespace tarsel {

/// Shows a place that a search has found: its title in bold, and below it the words around the first match,
/// paler. Both wrap at the width of the list.
class FoundPlaceDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    static constexpr int excerptRole = Qt::UserRole + 1;
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace tarsel
