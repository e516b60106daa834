// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/Players.h"

#include "base/PrivateFiles.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace tarsel {

namespace {

QString nameOf(Player player) {
    static const QString names[] = {QStringLiteral("saver"),        QStringLiteral("slide"),
                                    QStringLiteral("simple"),       QStringLiteral("watery"),
                                    QStringLiteral("raining-text"), QStringLiteral("clock")};
    return names[int(player)];
}

/// Where players may be, in the order in which they are tried.
QStringList playerFolders() {
    const QString own = QFile::decodeName(qgetenv("TARSEL_PLAYERS"));
    if (!own.isEmpty())
        return {own};
    QStringList folders;
    for (const std::filesystem::path& folder : privateFolders())
        folders << QFile::decodeName((folder / "players").c_str());
    return folders;
}

QString missingText(const QString& name, PlayerSystem system) {
    const QString advice =
        system == PlayerSystem::Windows
            ? QCoreApplication::translate(
                  "Players", "Players for Windows are built where g++-mingw-w64-x86-64 is installed.")
            : QCoreApplication::translate("Players", "Build or install the program again with its players.");
    return QCoreApplication::translate("Players",
                                       "The player \"%1\" is missing in %2. %3 The environment variable "
                                       "TARSEL_PLAYERS can name another folder.")
        .arg(name, playerFolders().join(QStringLiteral(", ")), advice);
}

} // namespace

QString playerFile(Player player, PlayerSystem system) {
    const QString name = system == PlayerSystem::Windows
                             ? QStringLiteral("windows/%1.exe").arg(nameOf(player))
                             : QStringLiteral("linux/") + nameOf(player);
    for (const QString& folder : playerFolders())
        if (const QFileInfo file(folder + QLatin1Char('/') + name); file.isFile())
            return file.absoluteFilePath();
    throw TrappedError{ErrorNumber::FileNotFound, missingText(name, system)};
}

} // namespace tarsel
