// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/DayGrid.h"

#include "controls/FocusFrame.h"
#include "controls/PaleText.h"

#include <QKeyEvent>
#include <QLocale>
#include <QPainter>

namespace tarsel {

namespace {

QDate firstOf(QDate day) {
    return {day.year(), day.month(), 1};
}

} // namespace

DayGrid::DayGrid(QWidget* parent) : QWidget(parent), m_date(QDate::currentDate()), m_month(firstOf(m_date)) {
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Days of the month"));
}

void DayGrid::setDate(QDate date) {
    if (!date.isValid())
        return;
    const bool isOther = date != m_date;
    m_date = date;
    setAccessibleDescription(QLocale().toString(date, QLocale::LongFormat));
    showMonth(date);
    if (isOther)
        Q_EMIT dateChanged(date);
}

void DayGrid::showMonth(QDate anyDay) {
    if (!anyDay.isValid())
        return;
    m_month = firstOf(anyDay);
    update();
    Q_EMIT monthShown(m_month);
}

void DayGrid::setFirstDay(Qt::DayOfWeek day) {
    m_firstDay = day;
    update();
}

void DayGrid::setShortNames(bool isShort) {
    m_isShort = isShort;
    updateGeometry();
    update();
}

void DayGrid::setShowsNeighbours(bool shows) {
    m_showsNeighbours = shows;
    update();
}

// --- places

QSize DayGrid::sizeHint() const {
    int width = fontMetrics().horizontalAdvance(QStringLiteral("00"));
    for (int day = Qt::Monday; day <= Qt::Sunday; ++day)
        width = std::max(width, fontMetrics().horizontalAdvance(QLocale().dayName(
                                    day, m_isShort ? QLocale::NarrowFormat : QLocale::ShortFormat)));
    return {columns * (width + 12), (weeks + 1) * (fontMetrics().height() + 8)};
}

/// The day in the first cell: the last first-column day up to the first of the month.
QDate DayGrid::firstShown() const {
    return m_month.addDays(-((m_month.dayOfWeek() - m_firstDay + columns) % columns));
}

QRect DayGrid::cell(int column, int row) const {
    const int left = column * width() / columns, right = (column + 1) * width() / columns;
    const int top = row * height() / (weeks + 1), bottom = (row + 1) * height() / (weeks + 1);
    return {QPoint(isRightToLeft() ? width() - right : left, top), QSize(right - left, bottom - top)};
}

QRect DayGrid::cellOf(QDate day) const {
    const int index = int(firstShown().daysTo(day));
    const bool isShown = day.month() == m_month.month() || m_showsNeighbours;
    return isShown && index >= 0 && index < columns * weeks ? cell(index % columns, index / columns + 1)
                                                            : QRect();
}

QDate DayGrid::dayAt(QPoint position) const {
    for (int i = 0; i < columns * weeks; ++i)
        if (const QDate day = firstShown().addDays(i); cellOf(day).contains(position))
            return day;
    return {};
}

// --- drawing

void DayGrid::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().base());
    paintNames(painter);
    for (int i = 0; i < columns * weeks; ++i)
        paintDay(painter, firstShown().addDays(i));
}

void DayGrid::paintNames(QPainter& painter) const {
    painter.setPen(paleText(palette()));
    for (int column = 0; column < columns; ++column) {
        const int day = (m_firstDay - 1 + column) % columns + 1;
        painter.drawText(cell(column, 0), Qt::AlignCenter,
                         QLocale().dayName(day, m_isShort ? QLocale::NarrowFormat : QLocale::ShortFormat));
    }
}

void DayGrid::paintDay(QPainter& painter, QDate day) const {
    const QRect area = cellOf(day);
    if (area.isEmpty())
        return;
    const QRectF inside = QRectF(area).adjusted(1.5, 1.5, -1.5, -1.5);
    const bool isChosen = day == m_date;
    if (isChosen) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(palette().highlight());
        painter.drawRoundedRect(inside, 3, 3);
    } else if (day == QDate::currentDate()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(inside, 3, 3);
    }
    const bool isNeighbour = day.month() != m_month.month();
    painter.setPen(isNeighbour && !isChosen
                       ? paleText(palette())
                       : palette().color(isChosen ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(area, Qt::AlignCenter, QLocale().toString(day.day()));
    if (isChosen && hasFocus())
        drawFocusFrame(painter, palette(), area);
}

void DayGrid::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void DayGrid::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

// --- input

void DayGrid::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        setDate(dayAt(event->pos()));
}

void DayGrid::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && dayAt(event->pos()) == m_date)
        Q_EMIT accepted();
}

void DayGrid::wheelEvent(QWheelEvent* event) {
    if (event->angleDelta().y() != 0)
        showMonth(m_month.addMonths(event->angleDelta().y() > 0 ? -1 : 1));
    event->accept();
}

void DayGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT accepted();
        return;
    }
    const QDate moved = movedBy(event->key());
    if (moved.isValid())
        setDate(moved);
    else
        QWidget::keyPressEvent(event);
}

QDate DayGrid::movedBy(int key) const {
    const int forward = isRightToLeft() ? -1 : 1;
    switch (key) {
    case Qt::Key_Left:
        return m_date.addDays(-forward);
    case Qt::Key_Right:
        return m_date.addDays(forward);
    case Qt::Key_Up:
        return m_date.addDays(-columns);
    case Qt::Key_Down:
        return m_date.addDays(columns);
    case Qt::Key_PageUp:
        return m_date.addMonths(-1);
    case Qt::Key_PageDown:
        return m_date.addMonths(1);
    case Qt::Key_Home:
        return firstOf(m_date);
    case Qt::Key_End:
        return {m_date.year(), m_date.month(), m_date.daysInMonth()};
    default:
        return {};
    }
}

} // namespace tarsel
