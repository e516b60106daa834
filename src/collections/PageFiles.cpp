// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"

#include "base/IgnoringErrors.h"
#include "base/RandomNumbers.h"
#include "base/TrappedError.h"
#include "collections/PictureFiles.h"
#include "collections/modFileSystem.h"
#include "imaging/ImageBox.h"

#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

#include <cerrno>
#include <cstdio>

namespace tarsel {

namespace {

QString temporaryFolderPath(const QString& programFolder) {
    return joinedPath(programFolder, QStringLiteral("Temp"));
}

} // namespace

QString temporaryFolder(const QString& programFolder) {
    return temporaryFolderPath(programFolder) + QLatin1Char('/');
}

QString rowName(AddedBy addedBy, const QString& fileName) {
    return addedBy == AddedBy::BasketFile ? fileName : modFileSystem::GetFileTitle(fileName);
}

QString pageRowName(AddedBy addedBy, const QString& fileName, int page) {
    const QString number = QString::number(page);
    const QString name = rowName(addedBy, fileName);
    return addedBy == AddedBy::Drag ? name + QLatin1Char('(') + number + QLatin1Char(')') : name + number;
}

int drawPageFileNumber() {
    return int(service<RandomNumbers>().randomNumber() * 9999);
}

QString newPageFile(const QString& programFolder, AddedBy addedBy, const QString& fileName, int page,
                    int number) {
    modFileSystem::MakeFolder(temporaryFolderPath(programFolder));
    const QString name = addedBy == AddedBy::Drag ? modFileSystem::GetFileTitle(fileName) : fileName;
    const QString start = temporaryFolder(programFolder) + name + QString::number(page) + QLatin1Char('_');
    // A page file that is there may be the picture of another row: it must never be written over. A dangling
    // link takes a name too.
    for (;; ++number) {
        const QString path = start + QString::number(number) + QStringLiteral(".tif");
        if (std::FILE* made = std::fopen(QFile::encodeName(path).constData(), "wbx")) {
            std::fclose(made);
            return path;
        }
        if (errno != EEXIST)
            failForErrno(errno, path);
    }
}

void savePage(ImageBox& box, const QString& path) {
    constexpr int fax = 2;
    const QScopedValueRollback compression(box.TiffCompression, fax);
    box.SaveToFile(path);
}

namespace {

void removeOrLog(const QString& path) {
    if (!QFile::remove(path))
        logIgnored(path + QStringLiteral(": can't be deleted"));
}

QDir temporaryFiles(const QString& programFolder, const QStringList& patterns) {
    const auto kinds = QDir::Files | QDir::Hidden | QDir::System | QDir::CaseSensitive;
    QDir folder(temporaryFolderPath(programFolder));
    folder.setFilter(kinds);
    folder.setNameFilters(patterns);
    return folder;
}

} // namespace

void deletePageFile(const QString& path) {
    if (!path.isEmpty())
        QFile::remove(path);
}

void deletePageFiles(const QString& programFolder) {
    const QDir folder = temporaryFiles(programFolder, {QStringLiteral("*.tif")});
    for (const QString& name : folder.entryList())
        removeOrLog(folder.filePath(name));
}

void deleteFilesWithoutExtension(const QString& programFolder) {
    const QDir folder = temporaryFiles(programFolder, {});
    for (const QString& name : folder.entryList())
        if (!name.contains(QLatin1Char('.')))
            removeOrLog(folder.filePath(name));
}

} // namespace tarsel
