// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PictureFiles.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"
#include "codecs/PictureFile.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <tuple>

namespace tarsel {

namespace {

/// Extensions of the pattern, which has a "*" after each: "photo.jpgold" is a picture too.
constexpr const char* listedExtensions[] = {".jpg", ".jpeg", ".jpe", ".tif", ".tiff", ".gif",
                                            ".bmp", ".pcx",  ".png", ".wbm", ".wbmp", ".psd"};

bool isPicture(const QString& path) {
    return ignoringErrors([&] { std::ignore = PictureFile(path).header(); });
}

} // namespace

bool isPictureName(const QString& name) {
    return std::any_of(std::begin(listedExtensions), std::end(listedExtensions), [&](const char* extension) {
        return name.contains(QLatin1String(extension), Qt::CaseInsensitive);
    });
}

bool standsBefore(const QString& a, const QString& b) {
    const int order = a.compare(b, Qt::CaseInsensitive);
    return order != 0 ? order < 0 : a < b;
}

QStringList pictureFiles(const QString& folder, const QString& also) {
    if (!QFileInfo(folder).isDir())
        fail(ErrorNumber::PathNotFound, folder);
    const QDir directory(folder);
    if (!directory.isReadable())
        fail(ErrorNumber::PermissionDenied, folder);
    QStringList names = directory.entryList(QDir::Files, QDir::Unsorted);
    names.removeIf([](const QString& name) { return !isPictureName(name); });
    if (!also.isEmpty() && !names.contains(also) && isPicture(joinedPath(folder, also)))
        names << also;
    std::sort(names.begin(), names.end(), standsBefore);
    return names;
}

bool mayHavePages(const QString& extension) {
    const QString lower = extension.toLower();
    return lower == QLatin1String("tif") || lower == QLatin1String("tiff");
}

} // namespace tarsel
