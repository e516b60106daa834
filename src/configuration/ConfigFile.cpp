// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ConfigFile.h"

#include "base/Dialogs.h"
#include "base/ErrorTrap.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/DamagedSettings.h"
#include "configuration/RecordImage.h"
#include "configuration/SettingsBeside.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarsel {

namespace {

QString configPathIn(const QString& programFolder) {
    return withSeparator(programFolder) +
           QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName();
}

/// A file that exists but can't be read counts as missing. Nothing but a file is opened: a pipe would wait
/// for its writer.
bool configurationExists() {
    const QFileInfo found(ConfigPath);
    return found.exists() && (!found.isFile() || QFile(ConfigPath).open(QIODevice::ReadOnly));
}

void throwCorruptedFileAway() {
    service<Dialogs>().messageBox(QCoreApplication::translate("ConfigFile",
                                                              "Configuration data file is corrupted\n"
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
    if (const QString folder = QFileInfo(ConfigPath).path(); !QDir().mkpath(folder))
        fail(ErrorNumber::PathNotFound, folder);
    if (!writeNewFileSafely(ConfigPath, {}))
        logIgnored(ConfigPath + QStringLiteral(": can't be read, and is kept"));
}

} // namespace

void subLoadSetup(const QString& programFolder) {
    const ConfigRecordData defaults = defaultRecord(programFolder);
    const auto failure = trap("subLoadSetup", [&] {
        ConfigPath = configPathIn(programFolder);
        if (configurationExists() && ConfigPath.isEmpty())
            throwCorruptedFileAway();
        readRecord(defaults);
        readSettingsBeside(ConfigRecord);
    });
    if (failure)
        ConfigRecord = defaults;
}

void subSaveSetup() {
    std::ignore = trap("subSaveSetup", [] {
        const QByteArray image = recordImage(ConfigRecord);
        const QByteArray old = QFile::exists(ConfigPath) ? readWholeFile(ConfigPath) : QByteArray();
        writeFileSafely(ConfigPath, image + old.mid(image.size()));
        storeSettingsBeside(ConfigRecord);
    });
}

void DeleteConfiguration() {
    if (!QFile::remove(ConfigPath))
        logIgnored(ConfigPath + QStringLiteral(": can't be removed"));
}

QStringList loadConfiguration(const QString& programFolder) {
    ConfigPath = configPathIn(programFolder);
    const QStringList remarks = keepDamagedSettings();
    subLoadSetup(programFolder);
    if (ConfigRecord.SplitterMain != damagedRecordMark)
        return remarks;
    DeleteConfiguration();
    subLoadSetup(programFolder);
    if (ConfigRecord.SplitterMain == damagedRecordMark) // the file could not be removed
        ConfigRecord = defaultRecord(programFolder);
    return remarks;
}

void storeBasketThumbnailSize(int width, int height) {
    ConfigRecord.BasketThumbHeight = qint16(width);
    ConfigRecord.BasketThumbWidth = qint16(height);
}

} // namespace tarsel
