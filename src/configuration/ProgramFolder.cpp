// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ProgramFolder.h"

#include "base/TrappedError.h"
#include "configuration/ConfigFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <filesystem>
#include <system_error>

namespace tarsel {

QString makeProgramFolder() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    std::error_code reason; // which Qt doesn't tell
    std::filesystem::create_directories(QFile::encodeName(folder).toStdString(), reason);
    if (reason)
        failForErrno(reason.value(), folder);
    return folder;
}

QString visibleFolder(const QString& folder) {
    const QString hidden = QFileInfo(ConfigPath).path() + QLatin1Char('/');
    if (ConfigPath.isEmpty() || !(QDir::cleanPath(folder) + QLatin1Char('/')).startsWith(hidden))
        return folder;
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

/// Beside the program, in a build folder as in an installed tree.
QString samplesFolder() {
    const QString folder =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" TARSEL_SAMPLES));
    return QDir(folder).exists() ? folder : QString();
}

} // namespace tarsel
