// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QtGlobal>

namespace tarsel {

/// Types of the record's fields in memory, by their names in the table.
namespace configType {
using I1 = quint8;
using I2 = qint16;
using I4 = qint32;
using R8 = double;
using S = QString;
using F = QString;

/// A system colour by index: the top bit set, the index in the low byte.
constexpr qint32 systemColor(quint32 index) {
    return qint32(0x80000000u | index);
}
} // namespace configType

/// The groups of fields: SaveAdvanced, BatchSave, WindowSettings, Twain, Tasks, PublishingSettings, Album,
/// Print. A fresh one holds the defaults, but for folders, which are empty until defaultRecord fills them.
namespace settings {
#define GROUP(group) struct group {
#define END_GROUP()                                                                                          \
    }                                                                                                        \
    ;
#define FIELD(type, name, value) configType::type name = value;
#define TEXT(type, name, value) configType::type name = QStringLiteral(value);
#define FOLDER(type, name, form) configType::type name;
#define BESIDE(type, name, value) configType::type name = value;
#include "configuration/ConfigFields.def"
} // namespace settings

/// Everything that the program remembers between two runs.
struct ConfigRecordData : settings::WindowSettings, settings::PublishingSettings {
    settings::SaveAdvanced SaveAdvanced;
    settings::BatchSave BatchSave;
    settings::Twain Twain;
    settings::Tasks Tasks;
    settings::Album Album;
    settings::Print Print;
};

/// The record of this run: filled once at start, before any dialog; brought to the disk at the end.
inline ConfigRecordData ConfigRecord;

/// The defaults with the program folder in its places.
ConfigRecordData defaultRecord(const QString& programFolder);

/// `folder` with a separator at its end, unless its trimmed text has one.
QString withSeparator(const QString& folder);

} // namespace tarsel
