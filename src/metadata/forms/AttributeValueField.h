// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QObject>
#include <QString>

class QPlainTextEdit;
class QWidget;

namespace tarsel {

class ucDateTimePicker;

/// The value of an attribute in a dialog: a text box, or the date picker for the attributes that are dates.
/// The time of day can't be changed there and is kept aside. A date that can't be read is shown as it stands.
class AttributeValueField final : public QObject {
    Q_OBJECT
public:
    AttributeValueField(QPlainTextEdit* text, ucDateTimePicker* date);

    /// The field that fits the attribute, with nothing or with a value in it.
    void showFor(const QString& name, const QString& value);
    bool isDate() const { return m_isDate; }
    bool isUnchanged() const; ///< what showFor was called with is still there
    /// Whether the value can be taken; a text that isn't a date is refused with a message, and stays.
    bool check();
    QWidget* input() const; ///< the one of the two controls that shows
    QString text() const;   ///< what the user typed, without blanks around it
    QDate day() const;
    /// The date that was shown; not valid for none.
    const QDateTime& shownDate() const { return m_shownDate; }
    void selectAll();

Q_SIGNALS:
    void accepted(); ///< Return in the text box

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPlainTextEdit* m_text;
    ucDateTimePicker* m_date;
    QString m_name;
    QString m_value; ///< before the edit
    bool m_isDate = false;
    QDateTime m_shownDate;
};

} // namespace tarsel
