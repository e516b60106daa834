// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/SettingsBeside.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"

#include <QByteArrayList>

namespace tarsel {

namespace {

constexpr char group[] = "[BatchSave]";
constexpr char uprightKey[] = "UprightByExif=";

/// The lines of the file, and where the setting stands among them. The rest may be of a later version.
struct Settings {
    QByteArrayList lines;
    qsizetype groupLine = -1, uprightLine = -1; ///< -1 for none
};

Settings readSettings() {
    QByteArray text;
    ignoringErrors([&] { text = readWholeFile(settingsPathBeside()).trimmed(); });
    Settings found{text.isEmpty() ? QByteArrayList() : text.split('\n')};
    bool isInGroup = false;
    for (qsizetype i = 0; i < found.lines.size(); ++i) {
        const QByteArray line = found.lines[i].trimmed();
        if (line.startsWith('['))
            isInGroup = line == group;
        if (isInGroup && line == group)
            found.groupLine = i;
        else if (isInGroup && line.startsWith(uprightKey))
            found.uprightLine = i;
    }
    return found;
}

} // namespace

QString settingsPathBeside() {
    return ConfigPath + QStringLiteral(".ini");
}

void readSettingsBeside(ConfigRecordData& record) {
    const Settings found = readSettings();
    const bool isOff = found.uprightLine >= 0 &&
                       found.lines[found.uprightLine].trimmed() == QByteArray(uprightKey) + "false";
    record.BatchSave.UprightByExif = isOff ? 0 : 1;
}

void storeSettingsBeside(const ConfigRecordData& record) {
    auto [lines, groupLine, uprightLine] = readSettings();
    const bool isUpright = record.BatchSave.UprightByExif == 1;
    const QByteArray line = QByteArray(uprightKey) + (isUpright ? "true" : "false");
    if (groupLine < 0)
        lines << group << line;
    else if (uprightLine < 0)
        lines.insert(groupLine + 1, line);
    else
        lines[uprightLine] = line;
    writeFileSafely(settingsPathBeside(), lines.join('\n') + '\n');
}

} // namespace tarsel
