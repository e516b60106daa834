// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/modFileSystem.h"

#include "base/TrappedError.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace tarsel::modFileSystem {

namespace {

/// Index of the "." before the extension, or -1. A "." in a folder's name is none.
qsizetype extensionPoint(const QString& path) {
    const qsizetype point = path.lastIndexOf(QLatin1Char('.'));
    return point > path.lastIndexOf(QLatin1Char('/')) ? point : -1;
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
    if (error)
        failForErrno(error.value(), path);
}

bool FileExistsByDir(const QString& path) {
    const QString trimmed = path.trimmed();
    return !trimmed.isEmpty() && QFileInfo::exists(trimmed);
}

bool FolderExists(const QString& path) {
    return QFileInfo(path).isDir();
}

} // namespace tarsel::modFileSystem
