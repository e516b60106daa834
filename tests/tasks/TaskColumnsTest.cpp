// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskColumns.h"
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
    {"Resize", "1 toSize Flag; 2 width Int32 (0) if 1; 3 height Int32 (0) if 1; 2 percent Int16 unless 1",
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

TEST(TaskColumns, DefaultsFollowTheSettings) {
    TaskDefaults settings;
    settings.ResizeMode = 1;
    settings.ResizeScale = 33;
    EXPECT_EQ(rowText(defaultRow(3, settings)), "3|resize|False|33");
    settings.CropSelect = 0;
    EXPECT_EQ(rowText(defaultRow(8, settings)), "8|crop|False");
    settings.MergeStyle = 3;
    settings.WatermarkImage = QStringLiteral("/a.png");
    EXPECT_EQ(rowText(defaultRow(9, settings)), "9|watermark|True|50|3|/a.png|-2147483639");
    settings.FrameStyle = 1;
    EXPECT_EQ(rowText(defaultRow(13, settings)), "13|frame|-2147483634|1|20");
    settings.CanvasCustom1 = 1;
    settings.CanvasCustom2 = 2;
    settings.CanvasCustom3 = 3;
    settings.CanvasCustom4 = 4;
    EXPECT_EQ(rowText(defaultRow(12, settings)), "12|canvas|-2147483634|2|1|3|4");
}
