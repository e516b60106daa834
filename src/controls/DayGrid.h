// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDate>
#include <QWidget>

namespace tarsel {

/// The days of a month in six weeks below the names of the days. One of them is chosen: by a click, or by the
/// arrow keys (a day, a week), Page Up and Page Down (a month), Home and End (first and last of the month).
class DayGrid final : public QWidget {
    Q_OBJECT
public:
    explicit DayGrid(QWidget* parent = nullptr);

    QDate date() const { return m_date; }
    void setDate(QDate date); ///< emits when it is another day
    /// The month on show, by any of its days; the chosen day stays.
    QDate month() const { return m_month; }
    void showMonth(QDate anyDay);

    void setFirstDay(Qt::DayOfWeek day); ///< of the first column
    void setShortNames(bool isShort);    ///< names of one letter
    void setShowsNeighbours(bool shows); ///< days of the months before and after, which can be clicked then

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }
    QRect cellOf(QDate day) const; ///< empty for a day that isn't shown

Q_SIGNALS:
    void dateChanged(QDate date);
    void monthShown(QDate firstDay);
    void accepted(); ///< by Return or a double click

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    static constexpr int columns = 7, weeks = 6;

    QDate firstShown() const;
    QDate dayAt(QPoint position) const;
    QRect cell(int column, int row) const; ///< row 0 has the names
    QDate movedBy(int key) const;
    void paintNames(QPainter& painter) const;
    void paintDay(QPainter& painter, QDate day) const;

    QDate m_date;
    QDate m_month; ///< its first day
    Qt::DayOfWeek m_firstDay = Qt::Sunday;
    bool m_isShort = false;
    bool m_showsNeighbours = false;
};

} // namespace tarsel
