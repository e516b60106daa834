// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RowDelegate.h"

#include "base/ListView.h"
#include "controls/LineIcon.h"
#include "controls/PictureIcon.h"
#include "controls/PlainToolTip.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QHash>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace tarsel {

namespace {

constexpr int cellMargin = 3;

bool isThumbnail(const QStyleOptionViewItem& option) {
    return option.decorationPosition == QStyleOptionViewItem::Top;
}

/// Rows have one line, whatever a file's attributes contain.
QString onOneLine(QString text) {
    for (const QChar lineBreak : {QChar(u'\n'), QChar(u'\r'), QChar(QChar::LineSeparator)})
        text.replace(lineBreak, QLatin1Char(' '));
    return text;
}

/// The picture that the list's logic names; rows of tasks, whose own pictures are not drawn, share one.
QIcon iconOf(const QString& iconKey) {
    static QHash<QString, QIcon> icons;
    QIcon& icon = icons[iconKey];
    if (icon.isNull())
        icon = lineIcon(iconKey);
    if (icon.isNull())
        icon = lineIcon(QStringLiteral("task"));
    return icon;
}

/// In the place of a thumbnail: the icon, smaller than a picture would be.
QPixmap placeholder(const QIcon& icon, QSize size) {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    QRect place({}, size * 2 / 5);
    place.moveCenter(pixmap.rect().center());
    icon.paint(&painter, place);
    return pixmap;
}

/// Pictures stand on white, which has no edge on a light list and would glare on a dark one.
void drawFrame(QPixmap& pixmap, const QStyleOptionViewItem& option, qreal ratio) {
    QColor line = option.palette.color(QPalette::Text);
    line.setAlphaF(0.4F);
    QPainter painter(&pixmap);
    QPen pen(line, std::max(1, int(ratio)));
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    const int inset = pen.width() / 2;
    painter.drawRect(pixmap.rect().adjusted(inset, inset, inset - pen.width(), inset - pen.width()));
}

qreal ratioOf(const QStyleOptionViewItem& option) {
    return option.widget ? option.widget->devicePixelRatioF() : 1;
}

void setFramedPicture(QStyleOptionViewItem& option, QPixmap pixmap) {
    drawFrame(pixmap, option, ratioOf(option));
    pixmap.setDevicePixelRatio(ratioOf(option));
    option.icon = pictureIcon(pixmap);
    option.features |= QStyleOptionViewItem::HasDecoration;
}

} // namespace

QSize RowDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    if (isThumbnail(option))
        return cellSize;
    const int air = option.fontMetrics.height() / 3;
    const QSize contents = QStyledItemDelegate::sizeHint(option, index);
    return {contents.width(), std::max(contents.height(), option.fontMetrics.height() + air)};
}

void RowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    if (isThumbnail(option))
        cell.rect.adjust(cellMargin, cellMargin, -cellMargin, -cellMargin);
    QStyledItemDelegate::paint(painter, cell, index);
    if (isThumbnail(option) && option.state & QStyle::State_Selected)
        paintSelection(*painter, cell, index);
    if (index.row() != dropRow)
        return;
    painter->setPen(QPen(option.palette.color(QPalette::Highlight), 2));
    const QRect frame = option.rect.adjusted(1, 1, -1, -1);
    painter->drawLine(frame.topLeft(), frame.topRight());
    painter->drawLine(frame.bottomLeft(), frame.bottomRight());
}

/// A frame round the picture, whose own colours stay.
void RowDelegate::paintSelection(QPainter& painter, QStyleOptionViewItem cell,
                                 const QModelIndex& index) const {
    initStyleOption(&cell, index);
    const QStyle* style = cell.widget ? cell.widget->style() : QApplication::style();
    const QRect picture = style->subElementRect(QStyle::SE_ItemViewItemDecoration, &cell, cell.widget);
    painter.setPen(QPen(cell.palette.color(QPalette::Highlight), 2));
    painter.drawRect(picture.adjusted(-1, -1, 1, 1));
}

bool RowDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                            const QModelIndex& index) {
    const int inView = (option.rect & view->viewport()->rect()).width();
    const QString text = index.data(Qt::DisplayRole).toString();
    const bool isCut = index.isValid() && (QStyledItemDelegate::sizeHint(option, index).width() > inView ||
                                           onOneLine(text) != text);
    if (!isCut || event->type() != QEvent::ToolTip)
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    QToolTip::showText(event->globalPos(), plainToolTip(text), view->viewport(), option.rect);
    return true;
}

void RowDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = onOneLine(option->text);
    const bool differsAtItsEnd = isThumbnail(*option) || QDir::isAbsolutePath(option->text); // as of a series
    option->textElideMode = differsAtItsEnd ? Qt::ElideMiddle : Qt::ElideRight;
    if (index.column() > 0 && !fullRow)
        option->state &= ~QStyle::State_Selected;
    if (index.column() > 0 || setPicture(*option, index.data(Qt::DecorationRole)))
        return;
    const QString iconKey = index.data(ListView::IconKeyRole).toString();
    if (iconKey.isEmpty())
        return;
    option->icon = iconOf(iconKey);
    option->features |= QStyleOptionViewItem::HasDecoration;
    if (isThumbnail(*option))
        return setFramedPicture(*option,
                                placeholder(option->icon, option->decorationSize * ratioOf(*option)));
    const int side = option->fontMetrics.height();
    option->decorationSize = QSize(side, side);
}

/// A picture is made for the pixels of the screen, so that a dense screen shows it at the size of any other.
/// A thumbnail fills the view's size of pictures, also while one of that size is still on its way.
bool RowDelegate::setPicture(QStyleOptionViewItem& option, const QVariant& picture) const {
    if (!picture.isValid() || !pixmapOf)
        return picture.isValid();
    const QPixmap pixmap = pixmapOf(picture);
    if (pixmap.isNull())
        return false;
    setFramedPicture(option, pixmap);
    if (!isThumbnail(option))
        option.decorationSize = (pixmap.size() / ratioOf(option)).boundedTo(option.decorationSize);
    return true;
}

} // namespace tarsel
