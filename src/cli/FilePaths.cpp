// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/FilePaths.h"

#include "base/TrappedError.h"
#include "cli/Arguments.h"
#include "cli/RawNameLinks.h"
#include "cli/RawNames.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <filesystem>

namespace tarsel::cli {

namespace {

/// QDir::current would lose the bytes that aren't UTF-8.
QString inCurrentFolder(const QString& word) {
    std::error_code failure;
    const std::string folder = std::filesystem::current_path(failure).native();
    if (failure)
        fail(ErrorNumber::PathNotFound,
             QCoreApplication::translate("CommandLine", "the current folder no longer exists: %1").arg(word));
    return nameFromBytes(QByteArray::fromStdString(folder)) + QLatin1Char('/') + word;
}

} // namespace

QString absolutePath(const QString& word) {
    if (word.isEmpty())
        throw UsageError{QCoreApplication::translate("CommandLine", "the name of a file is empty")};
    return QDir::cleanPath(QDir::isRelativePath(word) ? inCurrentFolder(word) : word);
}

QString filePath(const QString& word) {
    return RawNameLinks::readablePath(absolutePath(word));
}

QString folderPath(const QString& word) {
    QString path = filePath(word);
    if (!QFileInfo(path).isDir())
        requireUtf8FileName(word);
    return path;
}

void requireUtf8FileName(const QString& word) {
    const QString path = absolutePath(word);
    if (!isUtf8Name(path.section(QLatin1Char('/'), -1)))
        throw UsageError{notUtf8Text(path)};
}

QString notUtf8Text(const QString& name) {
    return QCoreApplication::translate("CommandLine", "%1: a name that is not UTF-8 can't be written")
        .arg(name);
}

} // namespace tarsel::cli
