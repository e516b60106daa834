// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/TypedPath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace tarsel {

namespace {

QString absolutePath(const QString& text, const QString& current) {
    const QString path =
        text.startsWith(QLatin1String("file:")) ? QUrl(text).toLocalFile() : withHomeFolder(text);
    return QDir::cleanPath(QDir(current.isEmpty() ? QDir::homePath() : current).absoluteFilePath(path));
}

} // namespace

QString withHomeFolder(const QString& text) {
    const bool isHome = text == QLatin1String("~") || text.startsWith(QLatin1String("~/"));
    return isHome ? QDir::homePath() + text.mid(1) : text;
}

Place placeOf(const QString& path) {
    const QFileInfo place(QDir::cleanPath(path));
    if (path.isEmpty() || !place.exists())
        return {};
    if (place.isDir())
        return {place.filePath(), {}};
    return {place.path(), place.filePath()};
}

QString nearestFolder(const QString& path) {
    QString folder = QDir::cleanPath(path);
    while (!folder.isEmpty() && !QFileInfo(folder).isDir() && QFileInfo(folder).path() != folder)
        folder = QFileInfo(folder).path();
    return folder;
}

TypedPath typedPath(const QString& text, const QString& current) {
    const QString typed = text.trimmed();
    const Place place = typed.isEmpty() ? Place() : placeOf(absolutePath(typed, current));
    if (place.folder.isEmpty())
        return {{}, QCoreApplication::translate("TypedPath", "There is no folder \"%1\".").arg(typed)};
    return {place, {}};
}

} // namespace tarsel
