// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskColumns.h"

#include "tasks/TaskList.h"

#include <algorithm>
#include <initializer_list>
#include <type_traits>

namespace tarsel {

namespace {

using D = TaskDefaults;
using Test = ColumnCondition::Test;

constexpr ColumnLimits none;
constexpr ColumnDefault unknown;
constexpr ColumnUse always;
constexpr ColumnUse never{.read = false};

constexpr ColumnLimits range(int lowest, int highest) {
    return {.bounded = true, .lowest = lowest, .highest = highest};
}

template <class... Words>
constexpr ColumnLimits words(Words... texts) {
    return {.bounded = true, .lowest = 0, .highest = int(sizeof...(texts)) - 1, .words = {texts...}};
}

template <class... Words>
constexpr ColumnLimits only(Words... texts) {
    ColumnLimits limits = words(texts...);
    limits.strict = true;
    return limits;
}

template <class Field, class... Texts>
constexpr ColumnDefault by(Field D::*field, Texts... texts) {
    return {.field = field, .texts = {texts...}};
}

constexpr ColumnDefault fixed(const char* text) {
    return {.field = {}, .texts = {text}};
}

constexpr ColumnControl noControl;

constexpr ColumnControl control(const char* name, const char* companion = nullptr) {
    return {.name = name, .companion = companion};
}

constexpr ColumnControl fraction(const char* name) {
    return {.name = name, .takesFraction = true};
}

constexpr ColumnCondition on(int number) {
    return {Test::On, number};
}
constexpr ColumnCondition off(int number) {
    return {Test::Off, number};
}
constexpr ColumnCondition is(int number, int value) {
    return {Test::Equal, number, value};
}
constexpr ColumnCondition filled(int number) {
    return {Test::Filled, number};
}

template <class... Conditions>
constexpr ColumnUse when(Conditions... conditions) {
    return {.conditions = {conditions...}};
}

template <ColumnType Type>
double valueOf(const QString& text) {
    const auto value = columnValue<Type>(text);
    if constexpr (std::is_same_v<decltype(value), const QString>)
        return 0;
    else
        return double(value);
}

#define KIND(number, Kind) constexpr std::initializer_list<TaskColumn> columnsOf##Kind = {
#define COLUMN(number, name, type, limits, fallback, initial, control, use)                                  \
    {number, #name, ColumnType::type, limits, fallback, initial, control, use, valueOf<ColumnType::type>},
#define OPTION(field, control)
#define END_KIND()                                                                                           \
    }                                                                                                        \
    ;
#include "tasks/TaskColumns.def"

#define KIND(number, Kind) constexpr std::initializer_list<TaskOption> optionsOf##Kind = {
#define COLUMN(number, name, type, limits, fallback, initial, control, use)
#define OPTION(field, control) {&D::field, control},
#define END_KIND()                                                                                           \
    }                                                                                                        \
    ;
#include "tasks/TaskColumns.def"

struct KindTables {
    std::initializer_list<TaskColumn> columns;
    std::initializer_list<TaskOption> options;
};

KindTables tablesOf(int kind) {
    switch (kind) {
#define KIND(number, Kind)                                                                                   \
    case number:                                                                                             \
        return {columnsOf##Kind, optionsOf##Kind};
#define COLUMN(number, name, type, limits, fallback, initial, control, use)
#define OPTION(field, control)
#define END_KIND()
#include "tasks/TaskColumns.def"
    default:
        return {};
    }
}

/// The value of a column that is read whatever other columns hold.
double valueAt(int number, std::span<const TaskColumn> columns, const TaskRow& row) {
    const auto column = std::ranges::find(columns, number, &TaskColumn::number);
    return column->value(column->text(row));
}

bool holds(const ColumnCondition& condition, std::span<const TaskColumn> columns, const TaskRow& row) {
    switch (condition.test) {
    case Test::On:
        return valueAt(condition.number, columns, row) != 0;
    case Test::Off:
        return valueAt(condition.number, columns, row) == 0;
    case Test::Equal:
        return valueAt(condition.number, columns, row) == condition.value;
    case Test::Filled:
        return !row.columns.at(std::size_t(condition.number - 1)).isEmpty();
    case Test::None:
        break;
    }
    return true;
}

/// One of `texts`, by a number, the last one for numbers beyond; the number itself where there are none.
QString textFor(int value, const std::array<const char*, 4>& texts) {
    const auto count = std::ranges::find(texts, nullptr) - texts.begin();
    if (count == 0)
        return QString::number(value);
    return QString::fromLatin1(texts.at(std::size_t(std::clamp<std::ptrdiff_t>(value, 0, count - 1))));
}

/// Whether the texts of the default stand for the numbers of the control.
bool hasTexts(const TaskColumn& column) {
    return !std::holds_alternative<std::monostate>(column.initial.field) && column.initial.texts[0];
}

} // namespace

std::span<const TaskColumn> taskColumns(int kind) {
    const std::initializer_list<TaskColumn> columns = tablesOf(kind).columns;
    return {columns.begin(), columns.size()};
}

std::span<const TaskOption> taskOptions(int kind) {
    const std::initializer_list<TaskOption> options = tablesOf(kind).options;
    return {options.begin(), options.size()};
}

bool isRead(const TaskColumn& column, std::span<const TaskColumn> columns, const TaskRow& row) {
    return column.use.read &&
           std::ranges::all_of(column.use.conditions, [&](const ColumnCondition& condition) {
               return holds(condition, columns, row);
           });
}

QString defaultText(const TaskColumn& column, const TaskDefaults& defaults) {
    const ColumnDefault& initial = column.initial;
    return std::visit(
        [&]<class Field>(Field field) -> QString {
            if constexpr (std::is_same_v<Field, std::monostate>)
                return QString::fromLatin1(initial.texts[0]);
            else if constexpr (std::is_same_v<Field, QString TaskDefaults::*>)
                return defaults.*field;
            else
                return textFor(defaults.*field, initial.texts);
        },
        initial.field);
}

QString textOfNumber(const TaskColumn& column, int number) {
    if (hasTexts(column))
        return textFor(number, column.initial.texts);
    return column.type == ColumnType::Flag ? fromBool(number != 0) : QString::number(number);
}

int numberOfText(const TaskColumn& column, const QString& text) {
    if (hasTexts(column))
        for (int number = 0; const char* each : column.initial.texts) {
            if (each && text == QLatin1String(each))
                return number;
            ++number;
        }
    const bool isFlag = column.type == ColumnType::Flag || column.type == ColumnType::Check;
    return isFlag ? int(toBool(text)) : toInt32(text);
}

TaskRow defaultRow(int kind, const TaskDefaults& defaults) {
    TaskRow row{QString::number(kind), {}, {}};
    if (const TaskKind* known = taskKind(kind))
        row.key = QString::fromLatin1(known->rowKey);
    const std::span<const TaskColumn> columns = taskColumns(kind);
    // Conditions look at columns that come first.
    for (const TaskColumn& column : columns)
        if (isRead(column, columns, row))
            row.columns.at(std::size_t(column.number - 1)) = defaultText(column, defaults);
    return row;
}

} // namespace tarsel
