// SPDX-License-Identifier: GPL-3.0-or-later
#include "configuration/ProgramFolder.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QDir>
#include <QStandardPaths>

namespace tarsel {

QString makeProgramFolder() {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (!QDir().mkpath(folder))
        fail(ErrorNumber::PathNotFound, folder);
    return folder;
}

/// Beside the program, in a build folder as in an installed tree.
QString samplesFolder() {
    const QString folder =
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/" TARSEL_SAMPLES));
    return QDir(folder).exists() ? folder : QString();
}

} // namespace tarsel
