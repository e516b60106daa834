// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "configuration/ConfigRecord.h"

#include <span>
#include <variant>

namespace tarsel {

enum class FieldType { I1, I2, I4, R8, S, F };

/// What a text field has as default: its own text, or the program folder in one of two forms.
enum class FolderDefault { None, AsReported, WithSeparator };

using ConfigValue = std::variant<quint8, qint16, qint32, double, QString>;

/// One row of the table of fields. The type of a value follows from `type`.
struct ConfigField {
    const char* group;
    const char* name;
    FieldType type;
    FolderDefault folder;
    ConfigValue (*value)(const ConfigRecordData& record);
    void (*assign)(ConfigRecordData& record, const ConfigValue& value); ///< the value has the field's type
};

/// All fields in the order of the file.
std::span<const ConfigField> configFields();

} // namespace tarsel
