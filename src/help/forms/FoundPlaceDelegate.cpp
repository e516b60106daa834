// SPDX-License-Identifier: GPL-3.0-or-later
#include "help/forms/FoundPlaceDelegate.h"

#include "controls/PaleText.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>

namespace tarsel {

namespace {

constexpr int margin = 5;
constexpr int flags = Qt::TextWordWrap | Qt::AlignLeft | Qt::AlignTop;

QFont titleFont(const QStyleOptionViewItem& option) {
    QFont font = option.font;
    font.setBold(true);
    return font;
}

QRect textRect(const QFont& font, const QString& text, QRect room) {
    constexpr int anyHeight = 10000;
    room.setHeight(anyHeight);
    return text.isEmpty() ? QRect(room.topLeft(), QSize())
                          : QFontMetrics(font).boundingRect(room, flags, text);
}

} // namespace

void FoundPlaceDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    QStyleOptionViewItem ground(option);
    initStyleOption(&ground, index);
    ground.text.clear();
    const QWidget* view = option.widget;
    (view ? view->style() : QApplication::style())
        ->drawControl(QStyle::CE_ItemViewItem, &ground, painter, view);

    const bool isSelected = option.state & QStyle::State_Selected;
    const QColor ink = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    QRect room = option.rect.adjusted(margin, margin, -margin, -margin);
    const QString title = index.data().toString();
    painter->save();
    painter->setPen(ink);
    painter->setFont(titleFont(option));
    painter->drawText(room, flags, title);
    room.setTop(room.top() + textRect(titleFont(option), title, room).height());
    painter->setPen(isSelected ? ink : paleText(option.palette));
    painter->setFont(option.font);
    painter->drawText(room, flags, index.data(excerptRole).toString());
    painter->restore();
}

QSize FoundPlaceDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
    const int width = view ? view->viewport()->width() : option.rect.width();
    const QRect room(0, 0, width - 2 * margin, 0);
    const int height = textRect(titleFont(option), index.data().toString(), room).height() +
                       textRect(option.font, index.data(excerptRole).toString(), room).height();
    return {width, height + 2 * margin};
}

} // namespace tarsel
