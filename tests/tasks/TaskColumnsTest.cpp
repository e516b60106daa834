// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskColumns.h"
#include "configuration/ConfigFields.h"
#include "tests/tasks/TaskRows.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

QString conditionText(const ColumnCondition& condition) {
    static constexpr const char* tests[] = {"", " if %1", " unless %1", " if %1=%2", " if %1 filled"};
    return QLatin1String(tests[int(condition.test)])
        .toString()
        .replace(QLatin1String("%1"), QString::number(condition.number))
        .replace(QLatin1String("%2"), QString::number(condition.value));
}

/// "2 degrees Int16 0..360 (45)"
std::string columnText(const TaskColumn& column) {
    static constexpr const char* types[] = {"Text",  "Path",  "Flag",   "Check", "Byte",
                                            "Int16", "Int32", "Number", "Color"};
    QString text = QStringLiteral("%1 %2 %3")
                       .arg(column.number)
                       .arg(QLatin1String(column.name), QLatin1String(types[int(column.type)]));
    if (column.limits.bounded)
        text += QStringLiteral(" %1..%2").arg(column.limits.lowest).arg(column.limits.highest);
    if (*column.fallback)
        text += QStringLiteral(" (%1)").arg(QLatin1String(column.fallback));
    if (!column.use.read)
        text += QStringLiteral(" never");
    for (const ColumnCondition& condition : column.use.conditions)
        text += conditionText(condition);
    return text.toStdString();
}

std::string columnsText(int kind) {
    std::string text;
    for (const TaskColumn& column : taskColumns(kind))
        text += (text.empty() ? "" : "; ") + columnText(column);
    return text;
}

/// Without the empty columns at the end.
std::string rowText(const TaskRow& row) {
    QStringList fields{row.kind, row.key};
    fields.append({row.columns.begin(), row.columns.end()});
    while (fields.last().isEmpty())
        fields.removeLast();
    return fields.join(QLatin1Char('|')).toStdString();
}

struct Golden {
    const char* name;
    const char* columns; ///< number, name, type, limits, (fallback), when a replay reads it
    const char* defaults;
};

const char* const level = "1 level Int32 1..10";
const char* const channels = "1 level Int32 0..100; 2 red Check; 3 green Check; 4 blue Check";

const Golden goldens[] = {
    {"Orientation", "1 direction Text 0..1", "1|flip|0"},
    {"Rotate", "1 smooth Flag; 2 degrees Int16 0..360 (45); 3 backColor Color",
     "2|rotate|False|0|-2147483634"},
    {"Resize",
     "1 toSize Flag; 2 width Int32 (0) if 1; 3 height Int32 (0) if 1; 2 percent Int16 (100) unless 1",
     "3|resize|True"},
    {"Blur", level, "4|blur|1"},
    {"Contrast", channels, "5|contrast|50|1|1|1"},
    {"Brightness", channels, "6|brightness|50|1|1|1"},
    {"Sharpen", level, "7|sharpen|1"},
    {"Crop",
     "1 typed Flag; 2 shape Int16 0..1 if 1; 3 left Int32 (0) if 1; 4 top Int32 (0) if 1; 5 right Int32 (0) "
     "if 1; "
     "6 bottom Int32 (0) if 1; 7 backColor Color if 1 if 2; 2 mouseLeft Int32 unless 1; 3 mouseTop Int32 "
     "unless 1; "
     "4 mouseRight Int32 unless 1; 5 mouseBottom Int32 unless 1; 6 displayWidth Int32 unless 1 if 6 filled "
     "if 7 "
     "filled; 7 displayHeight Int32 unless 1 if 6 filled if 7 filled",
     "8|crop|True|0|0|0"},
    {"Watermark",
     "1 transparent Flag; 2 transparency Int16 0..100; 3 style Int16 0..3; 4 path Path; 5 transparentColor "
     "Color if 1; "
     "6 y Number if 3=1; 7 x Number if 3=1; 8 stretched Flag never",
     "9|watermark|True|50|1||-2147483639|0|0"},
    {"Text",
     "1 antiAlias Flag; 2 stretched Flag never; 3 transparent Flag; 4 angle Int16 -180..180 (0); "
     "5 alignment Int16 0..2; 6 fontName Text; 7 fontSize Int16 0..200 (0); 8 bold Flag; 9 italic Flag; "
     "10 underline Flag; 11 color Color; 12 backColor Color; 13 orientation Byte 0..1; 14 position Int16 "
     "0..9; "
     "15 text Text; 16 x Int32 if 14=9; 17 y Int32 if 14=9",
     "10|text|True||True|0|0||14|False|False|False|-2147483640|-2147483634|0|0|Sample"},
    {"Negative", "", "11|invert"},
    {"Canvas",
     "1 backColor Color; 2 left Int32 0..800 (0); 3 top Int32 0..800 (0); 4 right Int32 0..800 (0); "
     "5 bottom Int32 0..800 (0)",
     "12|canvas|-2147483634|10|10|10|10"},
    {"Frame",
     "1 backColor Color; 2 plain Byte 0..1; 3 width Int32 0..800 (0) if 2; 3 number Int16 0..7 unless 2; "
     "4 resizeCanvas Byte 0..1 unless 2",
     "13|frame|-2147483634|0|0|1"},
    {"Mask", "1 transparent Flag; 2 transparency Int16 0..100; 3 number Int16 0..7", "14|mask|True|0|0"},
    {"Shadow", "1 number Int16 0..7", "15|shadow|0"},
    {"", "", "16"},
};

/// Settings that hold their own number, from 1.
TaskDefaults numberedSettings() {
    ConfigRecordData record;
    int number = 0;
    for (const ConfigField& field : configFields()) {
        if (QLatin1String(field.group) != QLatin1String("Tasks"))
            continue;
        ConfigValue value = field.value(record);
        ++number;
        std::visit(
            [&]<class Value>(Value& held) {
                if constexpr (std::is_same_v<Value, QString>)
                    held = QString::number(number);
                else
                    held = Value(number);
            },
            value);
        field.assign(record, value);
    }
    return record.Tasks;
}

} // namespace

TEST(TaskColumns, AreThoseThatTaskFilesHoldWithTheirLimitsAndDefaults) {
    int kind = 0;
    for (const auto& [name, columns, defaults] : goldens) {
        EXPECT_EQ(taskDisplayName(++kind), QLatin1String(name));
        EXPECT_EQ(columnsText(kind), columns);
        EXPECT_EQ(rowText(defaultRow(kind, {})), defaults);
    }
    EXPECT_EQ(taskDisplayName(0) + taskDisplayName(17), QString());
    EXPECT_TRUE(taskColumns(17).empty());
}

TEST(TaskColumns, EachDefaultComesFromItsOwnSetting) {
    TaskDefaults settings = numberedSettings();
    const char* const rows[] = {
        "1|flip|39",
        "2|rotate|True|10|12",
        "3|resize|False|4",
        "4|blur|21",
        "5|contrast|13|14|15|16",
        "6|brightness|17|18|19|20",
        "7|sharpen|22",
        "8|crop|True|24|0|0",
        "9|watermark|True|43|3|44|42",
        "10|text|True||True|36|37||31|True|False|False|32|27|38|29|25",
        "11|invert",
        "12|canvas|5|7|6|8|9",
        "13|frame|47|45|46",
        "14|mask|True|52|50",
        "15|shadow|53",
    };
    for (int kind = 1; const char* row : rows)
        EXPECT_EQ(rowText(defaultRow(kind++, settings)), row);
    settings.FrameStyle = 0;
    EXPECT_EQ(rowText(defaultRow(13, settings)), "13|frame|47|0|48|49");
}
