// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/SettingsBeside.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"

namespace tarsel {

namespace {

constexpr char settingsGroup[] = "[BatchSave]\n";
constexpr char uprightOn[] = "UprightByExif=true\n";
constexpr char uprightOff[] = "UprightByExif=false\n";

} // namespace

QString settingsPathBeside() {
    return ConfigPath + QStringLiteral(".ini");
}

void readSettingsBeside(ConfigRecordData& record) {
    QByteArray text;
    ignoringErrors([&] { text = readWholeFile(settingsPathBeside()); });
    record.BatchSave.UprightByExif = text.contains(uprightOff) ? 0 : 1;
}

void storeSettingsBeside(const ConfigRecordData& record) {
    const bool upright = record.BatchSave.UprightByExif == 1;
    writeFileSafely(settingsPathBeside(), QByteArray(settingsGroup) + (upright ? uprightOn : uprightOff));
}

} // namespace tarsel
