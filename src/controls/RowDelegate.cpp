#include "controls/RowDelegate.h"

#include <QPainter>

namespace tarsel {

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    if (index.row() != dropRow)
        return;
    painter->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    const QRect frame = option.rect.adjusted(1, 1, -1, -1);
    painter->drawLine(frame.topLeft(), frame.topRight());
    painter->drawLine(frame.bottomLeft(), frame.bottomRight());
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.column() > 0 && !fullRow)
        option->state &= ~QStyle::State_Selected;
}

} // namespace tarsel
