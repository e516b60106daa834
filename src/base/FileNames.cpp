// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/FileNames.h"

#include <QDir>
#include <QFileInfo>

namespace tarsel {

QString joinedPath(const QString& folder, const QString& name) {
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

bool isInFolder(const QString& path, const QString& folder) {
    return QDir::cleanPath(QFileInfo(path).path()) == QDir::cleanPath(folder);
}

bool isNameTaken(const QString& path) {
    const QFileInfo there(path);
    return there.exists() || there.isSymLink();
}

QString nameOfDamaged(const QString& path) {
    QString name = path + QStringLiteral(".damaged");
    for (int number = 2; isNameTaken(name); ++number)
        name = QStringLiteral("%1.damaged-%2").arg(path, QString::number(number));
    return name;
}

} // namespace tarsel
