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

TypedPath typedPath(const QString& text, const QString& current) {
    const QString typed = text.trimmed();
    const QString path = absolutePath(typed, current);
    const QFileInfo place(path);
    if (typed.isEmpty() || !place.exists())
        return {{}, {}, QCoreApplication::translate("TypedPath", "There is no folder \"%1\".").arg(typed)};
    if (place.isDir())
        return {path, {}, {}};
    return {place.path(), path, {}};
}

} // namespace tarsel
