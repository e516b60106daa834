// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/modFileSystem.h"

#include "base/FileNames.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace tarsel::modFileSystem {

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(modFileSystem)
};

/// Index of the "." before the extension, or -1. A "." in a folder's name is none.
qsizetype extensionPoint(const QString& path) {
    const qsizetype point = path.lastIndexOf(QLatin1Char('.'));
    return point > path.lastIndexOf(QLatin1Char('/')) ? point : -1;
}

/// The path or the part of it that is there.
QString existingPart(const QString& path) {
    QString part = QDir::cleanPath(path);
    for (QString above; !isNameTaken(part); part = above)
        if (above = QFileInfo(part).path(); above == part)
            break;
    return part;
}

qint32 numberOf(int reason) {
    switch (reason) {
    case EACCES:
    case EPERM:
    case EROFS:
        return ErrorNumber::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
        return ErrorNumber::DiskFull;
    default:
        return ErrorNumber::PathNotFound;
    }
}

/// Names the folder, the place where it can't be made, and why.
[[noreturn]] void failToMake(const QString& path, int reason) {
    const QString part = existingPart(path);
    const QFileInfo there(part);
    if (there.isDir())
        throw TrappedError{numberOf(reason),
                           Texts::tr("The folder %1 can't be made in %2: %3")
                               .arg(path, part, QString::fromLocal8Bit(std::strerror(reason)))};
    throw TrappedError{ErrorNumber::PathNotFound,
                       (there.exists() ? Texts::tr("The folder %1 can't be made: %2 is a file")
                                       : Texts::tr("The folder %1 can't be made: %2 is a link to nothing"))
                           .arg(path, part)};
}

} // namespace

QString GetFileExtension(const QString& path) {
    const qsizetype point = extensionPoint(path);
    return point < 0 ? QString() : path.mid(point + 1);
}

QString GetFileTitle(const QString& path) {
    const qsizetype point = extensionPoint(path);
    return point < 0 ? path : path.left(point);
}

QString GetFolderPart(const QString& path) {
    return path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
}

void MakeFolder(const QString& path) {
    std::error_code error;
    std::filesystem::create_directories(QFile::encodeName(path).toStdString(), error);
    if (!FolderExists(path))
        failToMake(path, error ? error.value() : EEXIST);
}

bool FileExistsByDir(const QString& path) {
    const QString trimmed = path.trimmed();
    return !trimmed.isEmpty() && QFileInfo::exists(trimmed);
}

bool FolderExists(const QString& path) {
    return QFileInfo(path).isDir();
}

} // namespace tarsel::modFileSystem
