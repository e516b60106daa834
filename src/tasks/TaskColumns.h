// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Conversions.h"
#include "configuration/ConfigRecord.h"
#include "tasks/TaskRow.h"

#include <span>
#include <variant>

namespace tarsel {

/// The columns of each kind as typed handles: row[column::Rotate::degrees].
namespace column {
#define KIND(kind, Kind) struct Kind {
#define COLUMN(number, name, type, limits, fallback, initial, control, use)                                  \
    static constexpr Column<ColumnType::type> name{number};
#define OPTION(field, control)
#define END_KIND()                                                                                           \
    }                                                                                                        \
    ;
#include "tasks/TaskColumns.def"
} // namespace column

template <ColumnType Type>
auto columnValue(const QString& text) {
    if constexpr (Type == ColumnType::Flag || Type == ColumnType::Check)
        return toBool(text);
    else if constexpr (Type == ColumnType::Byte)
        return toByte(text);
    else if constexpr (Type == ColumnType::Int16)
        return toInt16(text);
    else if constexpr (Type == ColumnType::Int32 || Type == ColumnType::ColorNumber)
        return toInt32(text);
    else if constexpr (Type == ColumnType::Number)
        return toDouble(text);
    else
        return text;
}

template <ColumnType Type>
auto TaskRow::operator[](Column<Type> column) const {
    return columnValue<Type>(columns.at(std::size_t(column.number - 1)));
}

template <ColumnType Type>
bool isEmpty(const TaskRow& row, Column<Type> column) {
    return row.columns.at(std::size_t(column.number - 1)).isEmpty();
}

/// The settings that hold the last confirmed options of the task panels.
using TaskDefaults = decltype(ConfigRecordData::Tasks);
using TaskField = std::variant<std::monostate, quint8 TaskDefaults::*, qint16 TaskDefaults::*,
                               qint32 TaskDefaults::*, QString TaskDefaults::*>;

/// Values that the control of a column takes.
struct ColumnLimits {
    bool bounded = false;
    int lowest = 0;
    int highest = 0;
    std::array<const char*, 10> words{}; ///< for the values from 0; null after the last
    bool strict = false;                 ///< a replay raises an error for another value
};

/// What a panel opens with: the value of a field, or the text that stands for it.
struct ColumnDefault {
    TaskField field;
    std::array<const char*, 4> texts{}; ///< for each value of the field; the first one when there is no field
};

/// The control of an option panel that a column's text comes from.
struct ColumnControl {
    const char* name = nullptr;      ///< null for a column without one
    const char* companion = nullptr; ///< label of a slider's number, or slider of a box
    bool takesFraction = false;
};

/// A condition on the text of another column.
struct ColumnCondition {
    enum class Test { None, On, Off, Equal, Filled };
    Test test = Test::None;
    int number = 0; ///< of the column
    int value = 0;
};

/// A replay reads the column when all conditions hold.
struct ColumnUse {
    bool read = true;
    std::array<ColumnCondition, 3> conditions{};
};

/// One row of the table of columns.
struct TaskColumn {
    int number; ///< from 1
    const char* name;
    ColumnType type;
    ColumnLimits limits;
    const char* fallback;
    ColumnDefault initial;
    ColumnControl control;
    ColumnUse use;
    double (*value)(const QString& text); ///< reads as the replay does; 0 for a text

    const QString& text(const TaskRow& row) const { return row.columns.at(std::size_t(number - 1)); }
};

/// A setting of a panel that no column has.
struct TaskOption {
    TaskField field;
    const char* control;
};

/// The columns of a kind; none for an unknown one.
std::span<const TaskColumn> taskColumns(int kind);
/// The other settings of its panel.
std::span<const TaskOption> taskOptions(int kind);

/// Whether a replay of the row, whose kind has these columns, reads the column. Raises what reading the
/// columns of its conditions raises.
bool isRead(const TaskColumn& column, std::span<const TaskColumn> columns, const TaskRow& row);

/// The text that a panel opens with; empty where that depends on the picture or on the fonts of the system.
QString defaultText(const TaskColumn& column, const TaskDefaults& defaults);

/// The text of a column for the number of its control: the index of the entry, 1 or 0 of a check box, a
/// level.
QString textOfNumber(const TaskColumn& column, int number);
/// The number for such a text. Raises what reading a number raises.
int numberOfText(const TaskColumn& column, const QString& text);

/// A row of a kind with the default options, in the columns that a replay reads.
TaskRow defaultRow(int kind, const TaskDefaults& defaults);

} // namespace tarsel
