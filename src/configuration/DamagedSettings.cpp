// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/DamagedSettings.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "configuration/ConfigFile.h"
#include "configuration/RecordImage.h"
#include "configuration/SettingsBeside.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>

namespace tarsel {

namespace {

enum class Damage { None, Marked, EndsEarly, Foreign };

/// More than the longest texts of a record and the tail of another version come to.
constexpr qint64 largestFile = 16 << 20;

bool isReadableFile(const QString& path) {
    const QFileInfo found(path);
    return found.isFile() && found.size() <= largestFile && QFile(path).open(QIODevice::ReadOnly);
}

std::array<qint16, 4> splitters(const ConfigRecordData& record) {
    return {record.SplitterMain, record.SplitterRight, record.SplitterLeft, record.SplitterView};
}

bool isPossible(const ConfigRecordData& record) {
    return std::ranges::all_of(splitters(record), [](int percent) { return percent >= 0 && percent <= 100; });
}

/// Texts come before them: a false length of one takes all bytes there are.
bool endsBeforeSplitters(const ConfigRecordData& record) {
    return std::ranges::all_of(splitters(record), [](int percent) { return percent == 0; });
}

/// An empty file is that of a first run which never came to its end.
Damage damageOf(const QByteArray& bytes) {
    if (bytes.isEmpty())
        return Damage::None;
    const ConfigRecordData record = recordFromImage(bytes);
    if (!isPossible(record))
        return Damage::Foreign;
    if (!isWholeRecord(bytes))
        return endsBeforeSplitters(record) ? Damage::Foreign : Damage::EndsEarly;
    return record.SplitterMain == damagedRecordMark ? Damage::Marked : Damage::None;
}

QString renameAside(const QString& path) {
    const QString kept = nameOfDamaged(path);
    // Not that of QFile, which copies where a rename fails: a pipe would wait for its writer.
    if (std::rename(QFile::encodeName(path).constData(), QFile::encodeName(kept).constData()) == 0)
        return QCoreApplication::translate(
                   "DamagedSettings", "The settings could not be read. The program starts with its usual "
                                      "ones; what was there is kept as %1.")
            .arg(kept);
    return QCoreApplication::translate("DamagedSettings", "The settings can be neither read nor stored: %1")
        .arg(path);
}

QString copyAside(const QString& path, const QByteArray& bytes) {
    const QString kept = nameOfDamaged(path);
    if (!ignoringErrors([&] { writeFileSafely(kept, bytes); }))
        return renameAside(path); // which needs no room on the disk
    return QCoreApplication::translate("DamagedSettings",
                                       "The settings end early, as those of an older version or a damaged "
                                       "file do. What is missing starts at zero; the old file is kept as %1.")
        .arg(kept);
}

QString keepRecord() {
    QByteArray bytes;
    if (!isReadableFile(ConfigPath) || !ignoringErrors([&] { bytes = readWholeFile(ConfigPath); }))
        return renameAside(ConfigPath);
    switch (damageOf(bytes)) {
    case Damage::Foreign:
        return renameAside(ConfigPath);
    case Damage::EndsEarly:
        return copyAside(ConfigPath, bytes);
    case Damage::Marked:
        std::ignore = copyAside(ConfigPath, bytes);
        break;
    case Damage::None:
        break;
    }
    return {};
}

} // namespace

QStringList keepDamagedSettings() {
    QStringList remarks;
    if (QFileInfo::exists(ConfigPath))
        remarks << keepRecord();
    if (const QString beside = settingsPathBeside(); QFileInfo::exists(beside) && !isReadableFile(beside))
        remarks << renameAside(beside);
    if (const QFileInfo temporary(QFileInfo(ConfigPath).dir().filePath(QStringLiteral("Temp")));
        !temporary.isDir() &&
        (temporary.exists() || temporary.isSymLink())) // maybe to a disk that is missing
        remarks << renameAside(temporary.filePath());
    remarks.removeAll(QString());
    return remarks;
}

} // namespace tarsel
