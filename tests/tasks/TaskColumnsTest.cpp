// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/TaskColumns.h"
#include "configuration/ConfigFields.h"
#include "tests/tasks/TaskRows.h"

#include <gtest/gtest.h>

using namespace tarsel;
using namespace tarsel::test;

namespace {

/// Without the empty columns at the end.
std::string rowText(const TaskRow& row) {
    QStringList fields{row.kind, row.key};
    fields.append({row.columns.begin(), row.columns.end()});
    while (fields.last().isEmpty())
        fields.removeLast();
    return fields.join(QLatin1Char('|')).toStdString();
}

struct Expected {
    const char* name;
    const char* usual;    ///< the row of the settings as they are first
    const char* numbered; ///< and of settings that hold their own number
};

constexpr Expected rows[] = {
    {"Orientation", "1|flip|0", "1|flip|39"},
    {"Rotate", "2|rotate|False|0|-2147483634", "2|rotate|True|10|12"},
    {"Resize", "3|resize|True", "3|resize|False|4"},
    {"Blur", "4|blur|1", "4|blur|21"},
    {"Contrast", "5|contrast|50|1|1|1", "5|contrast|13|14|15|16"},
    {"Brightness", "6|brightness|50|1|1|1", "6|brightness|17|18|19|20"},
    {"Sharpen", "7|sharpen|1", "7|sharpen|22"},
    {"Crop", "8|crop|True|0|0|0", "8|crop|True|24|0|0"},
    {"Watermark", "9|watermark|True|50|1||-2147483639|0|0", "9|watermark|True|43|3|44|42"},
    {"Text", "10|text|True||True|0|0||14|False|False|False|-2147483640|-2147483634|0|0|Sample",
     "10|text|True||True|36|37||31|True|False|False|32|27|38|29|25"},
    {"Negative", "11|invert", "11|invert"},
    {"Canvas", "12|canvas|-2147483634|10|10|10|10", "12|canvas|5|7|6|8|9"},
    {"Frame", "13|frame|-2147483634|0|0|1", "13|frame|47|45|46"},
    {"Mask", "14|mask|True|0|0", "14|mask|True|52|50"},
    {"Shadow", "15|shadow|0", "15|shadow|53"},
    {"", "16", "16"},
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

TEST(TaskColumns, EachDefaultComesFromItsOwnSetting) {
    TaskDefaults settings = numberedSettings();
    int kind = 0;
    for (const auto& [name, usual, numbered] : rows) {
        EXPECT_EQ(taskDisplayName(++kind), QLatin1String(name));
        EXPECT_EQ(rowText(defaultRow(kind, {})), usual);
        EXPECT_EQ(rowText(defaultRow(kind, settings)), numbered);
    }
    settings.FrameStyle = 0;
    EXPECT_EQ(rowText(defaultRow(13, settings)), "13|frame|47|0|48|49");
    EXPECT_EQ(taskDisplayName(0) + taskDisplayName(17), QString());
    EXPECT_TRUE(taskColumns(17).empty());
}
