// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QWidget>

class QFrame;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tarsel {

class DayGrid;

/// A date in a text field, and a calendar that drops down from it. Alt+Down and F4 open the calendar, Escape
/// closes it without a change; the field takes a typed date too, in the user's short form, in ISO form or in
/// that of EXIF. A text that isn't a date stays there as it is.
class ucDateTimePicker final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QDateTime DateSelected READ DateSelected WRITE setDateSelected NOTIFY DateChanged)
    Q_PROPERTY(int FirstDayOfWeek READ FirstDayOfWeek WRITE setFirstDayOfWeek)
    Q_PROPERTY(bool ShortDayNames READ ShortDayNames WRITE setShortDayNames)
    Q_PROPERTY(QString DescriptionFormat READ DescriptionFormat WRITE setDescriptionFormat)
    Q_PROPERTY(bool UseHandCursor READ UseHandCursor WRITE setUseHandCursor)
    Q_PROPERTY(bool ShowNonMonthDays READ ShowNonMonthDays WRITE setShowNonMonthDays)
    Q_PROPERTY(QString CurrentTheme READ CurrentTheme)
public:
    explicit ucDateTimePicker(QWidget* parent = nullptr);
    ~ucDateTimePicker() override;
    ucDateTimePicker(const ucDateTimePicker&) = delete;
    ucDateTimePicker& operator=(const ucDateTimePicker&) = delete;

    /// Today at midnight until it is set. Another time on the same day is no change.
    QDateTime DateSelected() const { return m_selected; }
    void setDateSelected(const QDateTime& date);
    /// 0 takes the first day of the user's own weeks, 1 is Sunday, 7 Saturday.
    int FirstDayOfWeek() const { return m_firstDayOfWeek; }
    void setFirstDayOfWeek(int day);
    bool ShortDayNames() const { return m_shortDayNames; }
    void setShortDayNames(bool isShort);
    /// In the tokens d, dd, mmm, mmmm, m, yyyy.
    QString DescriptionFormat() const { return m_descriptionFormat; }
    void setDescriptionFormat(const QString& format);
    bool UseHandCursor() const { return m_useHandCursor; }
    void setUseHandCursor(bool uses);
    bool ShowNonMonthDays() const { return m_showNonMonthDays; }
    void setShowNonMonthDays(bool shows);
    QString CurrentTheme() const; ///< the name of the widgets' style

    QString typedText() const; ///< the field as it is
    void setTypedText(const QString& text);
    bool takeText();   ///< makes the typed date the selected one; false for a text that isn't a date
    void selectText(); ///< and focuses it

Q_SIGNALS:
    void DateChanged(const QDateTime& date);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makePanel();
    QToolButton* makeMonthButton(const char* name, const QString& tip, int months);
    void openPanel();
    void acceptPanel();
    void showText();
    void describe();

    QDateTime m_selected;
    int m_firstDayOfWeek = 0;
    bool m_shortDayNames = false;
    bool m_useHandCursor = true;
    bool m_showNonMonthDays = false;
    QString m_descriptionFormat = QStringLiteral("d mmm yyyy");

    QLineEdit* m_text;
    QToolButton* m_drop;
    QFrame* m_panel;
    QLabel* m_title;
    QLabel* m_description;
    DayGrid* m_grid;
};

} // namespace tarsel
