// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "controls/FieldControl.h"

#include <algorithm>
#include <limits>
#include <span>
#include <type_traits>
#include <variant>
#include <vector>

namespace tarsel {

/// When the value of a control goes to its field.
enum class StoreMoment {
    OnChange,     ///< with each change by the user, and so kept however the form is left
    BeforeChecks, ///< when the form is accepted; kept even if a check then refuses
    AfterChecks   ///< when the form is accepted and every check passed
};

template <class Record>
using RecordField =
    std::variant<quint8 Record::*, qint16 Record::*, qint32 Record::*, double Record::*, QString Record::*>;

/// One row of a form's table: the control's object name, its field, the moment when it is stored. A text that
/// looks different in the control is converted by `shown` and `stored`.
template <class Record>
struct FormField {
    const char* control;
    RecordField<Record> field;
    StoreMoment moment = StoreMoment::AfterChecks;
    QString (*shown)(const QString&) = nullptr;
    QString (*stored)(const QString&) = nullptr;
};

/// Joins the controls of a form with the fields of its record. A control that the table names must exist; the
/// table and the record must outlive the binding.
template <class Record>
class FormBinding {
public:
    FormBinding(QObject& form, Record& record, std::span<const FormField<Record>> table) : m_record(record) {
        for (const FormField<Record>& row : table)
            m_rows.push_back({&row, FieldControl(form, row.control)});
        show();
        for (const Row& row : m_rows)
            if (row.field->moment == StoreMoment::OnChange)
                row.control.onChange([this, row] { store(row, m_record); });
    }
    FormBinding(const FormBinding&) = delete;
    FormBinding& operator=(const FormBinding&) = delete;

    /// Brings the record to the controls.
    void show() {
        for (const Row& row : m_rows)
            std::visit(
                [&](auto field) {
                    if constexpr (isText<decltype(field)>)
                        row.control.setValue(row.field->shown ? row.field->shown(m_record.*field)
                                                              : m_record.*field);
                    else
                        row.control.setValue(m_record.*field);
                },
                row.field->field);
    }

    /// Stores the fields of that moment in the record.
    void store(StoreMoment moment) {
        for (const Row& row : m_rows)
            if (row.field->moment == moment)
                store(row, m_record);
    }

    /// What the record would be if the form were accepted now.
    Record shown() const {
        Record record = m_record;
        for (const Row& row : m_rows)
            store(row, record);
        return record;
    }

    void onAnyChange(const std::function<void()>& changed) {
        for (const Row& row : m_rows)
            row.control.onChange(changed);
    }

private:
    struct Row {
        const FormField<Record>* field;
        FieldControl control;
    };

    template <class Field>
    static constexpr bool isText = std::is_same_v<Field, QString Record::*>;

    /// A number that the field can't hold becomes the nearest one that it can.
    template <class Number>
    static Number nearest(double value) {
        if constexpr (std::is_floating_point_v<Number>)
            return value;
        else
            return Number(std::clamp(roundHalfEven(value), double(std::numeric_limits<Number>::min()),
                                     double(std::numeric_limits<Number>::max())));
    }

    static void store(const Row& row, Record& record) {
        const QVariant value = row.control.value();
        if (!value.isValid())
            return;
        std::visit(
            [&](auto field) {
                if constexpr (isText<decltype(field)>)
                    record.*field =
                        row.field->stored ? row.field->stored(value.toString()) : value.toString();
                else
                    record.*field =
                        nearest<std::remove_reference_t<decltype(record.*field)>>(value.toDouble());
            },
            row.field->field);
    }

    Record& m_record;
    std::vector<Row> m_rows;
};

} // namespace tarsel
