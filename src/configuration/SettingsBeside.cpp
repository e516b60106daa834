// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/SettingsBeside.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"

#include <QByteArrayList>
#include <type_traits>
#include <variant>

namespace tarsel {

namespace {

struct Switch {
    const char* group; ///< with its brackets
    const char* key;   ///< with its equals sign
    quint8& (*field)(ConfigRecordData& record);
    bool isOnByDefault;
};

constexpr Switch switches[] = {
    {"[BatchSave]", "UprightByExif=",
     [](ConfigRecordData& record) -> quint8& { return record.BatchSave.UprightByExif; }, true},
    {"[BatchSave]", "StripPrivate=",
     [](ConfigRecordData& record) -> quint8& { return record.BatchSave.StripPrivate; }, false},
    {"[Publishing]",
     "WindowsPlayers=", [](ConfigRecordData& record) -> quint8& { return record.PlayerSystem; }, false},
    {"[Album]", "ModernTemplate=",
     [](ConfigRecordData& record) -> quint8& { return record.Album.ModernTemplate; }, false},
    {"[Album]", "Originals=", [](ConfigRecordData& record) -> quint8& { return record.Album.Originals; },
     false},
    {"[Album]",
     "StripPrivate=", [](ConfigRecordData& record) -> quint8& { return record.Album.StripPrivate; }, false},
    {"[Album]", "OnlyChanged=", [](ConfigRecordData& record) -> quint8& { return record.Album.OnlyChanged; },
     false},
    {"[Editing]", "LivePreview=", [](ConfigRecordData& record) -> quint8& { return record.LivePreview; },
     true},
    {"[Hints]", "OwnPicturesSeen=", [](ConfigRecordData& record) -> quint8& { return record.HintOwnSeen; },
     true},
    {"[Hints]", "TaskSeen=", [](ConfigRecordData& record) -> quint8& { return record.HintTaskSeen; }, true},
    {"[Hints]", "SaveSeen=", [](ConfigRecordData& record) -> quint8& { return record.HintSaveSeen; }, true},
};

using SaveAdvanced = settings::SaveAdvanced;

/// A number of SaveAdvanced. It is written when it isn't the default.
struct Number {
    const char* key; ///< with its equals sign
    std::variant<quint8 SaveAdvanced::*, qint16 SaveAdvanced::*, qint32 SaveAdvanced::*> field;
    int lowest;
    int highest;
};

constexpr char groupOfNumbers[] = "[SaveAdvanced]";
constexpr Number numbers[] = {
    {"JpgLimited=", &SaveAdvanced::JpgLimited, 0, 1},
    {"JpgMostKilobytes=", &SaveAdvanced::JpgMostKilobytes, 1, 999'999},
    {"JpgLowestQuality=", &SaveAdvanced::JpgLowestQuality, 1, 100},
    {"JpgMayShrink=", &SaveAdvanced::JpgMayShrink, 0, 1},
};

/// The lines of the file; those that aren't known may be of a later version.
QByteArrayList readLines() {
    QByteArray text;
    ignoringErrors([&] { text = readWholeFile(settingsPathBeside()).trimmed(); });
    return text.isEmpty() ? QByteArrayList() : text.split('\n');
}

/// Where a setting stands among the lines; -1 for none.
struct Place {
    qsizetype group = -1, key = -1;
};

Place placeOf(const char* group, const char* key, const QByteArrayList& lines) {
    Place place;
    bool isInGroup = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines[i].trimmed();
        if (line.startsWith('['))
            isInGroup = line == group;
        if (isInGroup && line == group)
            place.group = i;
        else if (isInGroup && line.startsWith(key))
            place.key = i;
    }
    return place;
}

void putLine(const char* group, const char* key, const QByteArray& value, QByteArrayList& lines) {
    const Place place = placeOf(group, key, lines);
    const QByteArray line = key + value;
    if (place.group < 0)
        lines << group << line;
    else if (place.key < 0)
        lines.insert(place.group + 1, line);
    else
        lines[place.key] = line;
}

int valueOf(const Number& number, const SaveAdvanced& record) {
    return std::visit([&](auto field) { return int(record.*field); }, number.field);
}

void readNumber(const Number& number, const QByteArrayList& lines, SaveAdvanced& record) {
    const qsizetype line = placeOf(groupOfNumbers, number.key, lines).key;
    bool isNumber = false;
    int value = line < 0 ? 0 : lines[line].trimmed().mid(qstrlen(number.key)).toInt(&isNumber);
    if (!isNumber || value < number.lowest || value > number.highest)
        value = valueOf(number, SaveAdvanced());
    std::visit([&](auto field) { record.*field = std::remove_reference_t<decltype(record.*field)>(value); },
               number.field);
}

void putNumber(const Number& number, const SaveAdvanced& record, QByteArrayList& lines) {
    const int value = valueOf(number, record);
    if (value != valueOf(number, SaveAdvanced()) || placeOf(groupOfNumbers, number.key, lines).key >= 0)
        putLine(groupOfNumbers, number.key, QByteArray::number(value), lines);
}

} // namespace

QString settingsPathBeside() {
    return ConfigPath + QStringLiteral(".ini");
}

void readSettingsBeside(ConfigRecordData& record) {
    const QByteArrayList lines = readLines();
    for (const Switch& each : switches) {
        const qsizetype line = placeOf(each.group, each.key, lines).key;
        const QByteArray other = QByteArray(each.key) + (each.isOnByDefault ? "false" : "true");
        const bool isOther = line >= 0 && lines[line].trimmed() == other;
        each.field(record) = isOther != each.isOnByDefault ? 1 : 0;
    }
    for (const Number& each : numbers)
        readNumber(each, lines, record.SaveAdvanced);
}

void storeSettingsBeside(const ConfigRecordData& record) {
    ConfigRecordData stored = record;
    QByteArrayList lines = readLines();
    for (const Switch& each : switches)
        putLine(each.group, each.key, each.field(stored) == 1 ? "true" : "false", lines);
    for (const Number& each : numbers)
        putNumber(each, record.SaveAdvanced, lines);
    writeFileSafely(settingsPathBeside(), lines.join('\n') + '\n');
}

} // namespace tarsel
