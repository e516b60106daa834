// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/SettingsBeside.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"

#include <QByteArrayList>

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
    {"[Editing]", "LivePreview=", [](ConfigRecordData& record) -> quint8& { return record.LivePreview; },
     true},
};

/// The lines of the file; those that aren't known may be of a later version.
QByteArrayList readLines() {
    QByteArray text;
    ignoringErrors([&] { text = readWholeFile(settingsPathBeside()).trimmed(); });
    return text.isEmpty() ? QByteArrayList() : text.split('\n');
}

/// Where a switch stands among the lines; -1 for none.
struct Place {
    qsizetype group = -1, key = -1;
};

Place placeOf(const Switch& each, const QByteArrayList& lines) {
    Place place;
    bool isInGroup = false;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines[i].trimmed();
        if (line.startsWith('['))
            isInGroup = line == each.group;
        if (isInGroup && line == each.group)
            place.group = i;
        else if (isInGroup && line.startsWith(each.key))
            place.key = i;
    }
    return place;
}

void putLine(const Switch& each, bool isOn, QByteArrayList& lines) {
    const Place place = placeOf(each, lines);
    const QByteArray line = QByteArray(each.key) + (isOn ? "true" : "false");
    if (place.group < 0)
        lines << each.group << line;
    else if (place.key < 0)
        lines.insert(place.group + 1, line);
    else
        lines[place.key] = line;
}

} // namespace

QString settingsPathBeside() {
    return ConfigPath + QStringLiteral(".ini");
}

void readSettingsBeside(ConfigRecordData& record) {
    const QByteArrayList lines = readLines();
    for (const Switch& each : switches) {
        const qsizetype line = placeOf(each, lines).key;
        const QByteArray other = QByteArray(each.key) + (each.isOnByDefault ? "false" : "true");
        const bool isOther = line >= 0 && lines[line].trimmed() == other;
        each.field(record) = isOther != each.isOnByDefault ? 1 : 0;
    }
}

void storeSettingsBeside(const ConfigRecordData& record) {
    ConfigRecordData stored = record;
    QByteArrayList lines = readLines();
    for (const Switch& each : switches)
        putLine(each, each.field(stored) == 1, lines);
    writeFileSafely(settingsPathBeside(), lines.join('\n') + '\n');
}

} // namespace tarsel
