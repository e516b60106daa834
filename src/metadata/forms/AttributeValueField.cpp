// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/AttributeValueField.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/IgnoringErrors.h"
#include "base/Locale.h"
#include "controls/ucDateTimePicker.h"
#include "metadata/modMetadata.h"

#include <QKeyEvent>
#include <QPlainTextEdit>

namespace tarsel {

namespace {

constexpr int linesShown = 4;

} // namespace

AttributeValueField::AttributeValueField(QPlainTextEdit* text, ucDateTimePicker* date) :
    QObject(text), m_text(text), m_date(date) {
    m_text->installEventFilter(this);
    m_text->setMinimumHeight(m_text->fontMetrics().lineSpacing() * linesShown + 12);
}

void AttributeValueField::showFor(const QString& name, const QString& value) {
    m_name = name;
    m_value = value;
    m_isDate = modMetadata::IsExifDate(name) || modMetadata::IsIptcDate(name);
    m_text->setVisible(!m_isDate);
    m_date->setVisible(m_isDate);
    m_text->setPlainText(value);
    m_shownDate = {};
    const bool isReadable = !m_isDate || value.isEmpty() || ignoringErrors([&] {
        m_shownDate = modMetadata::DateOfRow(name, value, service<Locale>().dateForms());
    });
    m_date->setDateSelected(m_shownDate.isValid() ? m_shownDate : QDate::currentDate().startOfDay());
    if (!isReadable)
        m_date->setTypedText(value);
}

QWidget* AttributeValueField::input() const {
    return m_isDate ? static_cast<QWidget*>(m_date) : m_text;
}

QString AttributeValueField::text() const {
    return m_text->toPlainText().trimmed();
}

bool AttributeValueField::isUnchanged() const {
    if (!m_isDate)
        return text() == m_value;
    return m_date->takeText() ? day() == m_shownDate.date() : m_date->typedText() == m_value;
}

bool AttributeValueField::check() {
    if (!m_isDate || m_date->takeText())
        return true;
    const QDate today = QDate::currentDate();
    service<Dialogs>().messageBox(tr("%1: \"%2\" is not a date.\nToday is written as %3 or %4.")
                                      .arg(m_name, m_date->typedText(),
                                           shortDateText(today.startOfDay(), service<Locale>().dateForms()),
                                           today.toString(Qt::ISODate)),
                                  MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
    selectAll();
    return false;
}

QDate AttributeValueField::day() const {
    return m_date->DateSelected().date();
}

void AttributeValueField::selectAll() {
    if (m_isDate)
        return m_date->selectText();
    m_text->setFocus();
    m_text->selectAll();
}

bool AttributeValueField::eventFilter(QObject*, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isReturn = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (!isReturn || key->modifiers() & Qt::ShiftModifier)
        return false;
    Q_EMIT accepted();
    return true;
}

} // namespace tarsel
