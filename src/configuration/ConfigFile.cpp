// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigFile.h"

#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "base/SafeFileWriter.h"
#include "configuration/RecordImage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace tarsel {

namespace {

/// What SplitterMain holds in a record that is to be thrown away.
constexpr qint16 damagedRecordMark = 10;

QString executableBaseName() {
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
}

/// A file that exists but can't be read counts as missing.
bool configurationExists() {
    return QFile(ConfigPath).open(QIODevice::ReadOnly);
}

void throwCorruptedFileAway() {
    desktop().messageBox(QStringLiteral("Configuration data file is corrupted\n"
                                        "Setting values will be initilized to default"),
                         MessageIcon::Exclamation, MessageButtons::Ok, ApplicationName);
    DeleteConfiguration();
}

/// Reads the record, or makes the file that the end of the run will fill.
void readRecord(const ConfigRecordData& defaults) {
    if (configurationExists()) {
        ConfigRecord = recordFromImage(readWholeFile(ConfigPath));
        return;
    }
    ConfigRecord = defaults;
    QDir().mkpath(QFileInfo(ConfigPath).path());
    writeFileSafely(ConfigPath, {});
}

const QString uprightKey = QStringLiteral("BatchSave/UprightByExif");

/// Bytes that are not settings would be reported at each end of the program, and partly kept.
void removeDamagedSettings() {
    if (QSettings(settingsPathBeside(), QSettings::IniFormat).status() == QSettings::FormatError)
        QFile::remove(settingsPathBeside());
}

void readSettingsBeside() {
    removeDamagedSettings();
    const QSettings settings(settingsPathBeside(), QSettings::IniFormat);
    ConfigRecord.BatchSave.UprightByExif = settings.value(uprightKey, true).toBool() ? 1 : 0;
}

void storeSettingsBeside() {
    removeDamagedSettings();
    QSettings settings(settingsPathBeside(), QSettings::IniFormat);
    settings.setValue(uprightKey, ConfigRecord.BatchSave.UprightByExif == 1);
    settings.sync();
    if (settings.status() != QSettings::NoError)
        fail(ErrorNumber::PermissionDenied, settingsPathBeside());
}

} // namespace

QString settingsPathBeside() {
    return ConfigPath + QStringLiteral(".ini");
}

void subLoadSetup(const QString& programFolder) {
    const ConfigRecordData defaults = defaultRecord(programFolder);
    const bool ended = trap("subLoadSetup", [&] {
        ConfigPath = withSeparator(programFolder) + executableBaseName();
        if (configurationExists() && ConfigPath.isEmpty())
            throwCorruptedFileAway();
        readRecord(defaults);
        readSettingsBeside();
    });
    if (!ended)
        ConfigRecord = defaults;
}

void subSaveSetup() {
    trap("subSaveSetup", [] {
        const QByteArray image = recordImage(ConfigRecord);
        const QByteArray old = QFile::exists(ConfigPath) ? readWholeFile(ConfigPath) : QByteArray();
        writeFileSafely(ConfigPath, image + old.mid(image.size()));
        storeSettingsBeside();
    });
}

void DeleteConfiguration() {
    QFile::remove(ConfigPath);
}

void loadConfiguration(const QString& programFolder) {
    subLoadSetup(programFolder);
    if (ConfigRecord.SplitterMain != damagedRecordMark)
        return;
    DeleteConfiguration();
    subLoadSetup(programFolder);
    if (ConfigRecord.SplitterMain == damagedRecordMark) // the file could not be removed
        ConfigRecord = defaultRecord(programFolder);
}

void storeBasketThumbnailSize(int width, int height) {
    ConfigRecord.BasketThumbHeight = qint16(width);
    ConfigRecord.BasketThumbWidth = qint16(height);
}

} // namespace tarsel
