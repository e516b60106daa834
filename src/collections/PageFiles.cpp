// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/PageFiles.h"

#include "base/AcquiredFiles.h"
#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/RandomNumbers.h"
#include "base/TrappedError.h"
#include "collections/modFileSystem.h"
#include "imaging/ImageBox.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QSet>

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

QString documentOfPageFile(const QString& fileName) {
    static const QRegularExpression pageFile(QStringLiteral("^(.+\\.[^.\\d]+)\\d+_\\d+\\.tif$"));
    return pageFile.match(fileName).captured(1);
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

QDir filesIn(const QString& path, const QStringList& patterns) {
    const auto kinds = QDir::Files | QDir::Hidden | QDir::System | QDir::CaseSensitive;
    QDir folder(path);
    folder.setFilter(kinds);
    folder.setNameFilters(patterns);
    return folder;
}

QDir pageFilesIn(const QString& path) {
    return filesIn(path, {QStringLiteral("*.tif")});
}

/// Has a folder for each New Basket that can be undone.
QString setAsideFolder(const QString& programFolder) {
    return joinedPath(temporaryFolderPath(programFolder), QStringLiteral("Undo"));
}

/// A new folder; empty when none can be made.
QString newSetAsideFolder(const QString& programFolder) {
    const QDir parent(setAsideFolder(programFolder));
    if (!QDir().mkpath(parent.path()))
        return {};
    for (int number = 1;; ++number) {
        const QString name = QString::number(number);
        if (parent.mkdir(name))
            return parent.filePath(name);
        if (!parent.exists(name))
            return {};
    }
}

/// Moves a file to the first free name of "scan1_17.tif", "scan1_17_2.tif" and so on; the new name of an
/// acquired one is listed first. Empty where it can't be moved.
QString moveWithoutReplacing(const QString& from, const QString& to, bool isAcquired) {
    const QString start = modFileSystem::GetFileTitle(to);
    for (int number = 2;; ++number) {
        const QString path =
            number == 2 ? to : QStringLiteral("%1_%2.tif").arg(start, QString::number(number - 1));
        if (isAcquired && path != to && !isNameTaken(path))
            ignoringErrors([&] { acquiredFiles::list({path}, false); });
        if (QFile::rename(from, path))
            return path;
        if (!isNameTaken(path))
            return {};
    }
}

} // namespace

void deletePageFile(const QString& path) {
    if (!path.isEmpty())
        QFile::remove(path);
}

namespace {

/// What New Basket takes away: not the acquired files that are listed, but for those of `removed`. None where
/// nobody can know.
QStringList namesToSetAside(const QDir& files, const QStringList& removed) {
    QStringList names;
    ignoringErrors([&] {
        const QStringList listed = acquiredFiles::listed(files.path());
        QSet<QString> staying(listed.begin(), listed.end());
        if (!staying.isEmpty()) // as nearly never
            for (const QString& path : removed)
                if (isInFolder(path, files.path()))
                    staying.remove(QFileInfo(path).fileName());
        names = files.entryList();
        names.removeIf([&](const QString& name) { return staying.contains(name); });
    });
    return names;
}

} // namespace

QStringList pageFileNames(const QString& programFolder) {
    return namesToSetAside(pageFilesIn(temporaryFolderPath(programFolder)), {});
}

PageFilesAside setPageFilesAside(const QString& programFolder, const QStringList& removed) {
    const QDir files = pageFilesIn(temporaryFolderPath(programFolder));
    const QStringList names = namesToSetAside(files, removed);
    const QString folder = names.isEmpty() ? QString() : newSetAsideFolder(programFolder);
    if (folder.isEmpty())
        return {};
    QStringList moved;
    for (const QString& name : names)
        if (QFile::rename(files.filePath(name), joinedPath(folder, name)))
            moved << files.filePath(name);
    // Only now: after a kill before it, the next start returns what is listed.
    const auto struck = acquiredFiles::strike(files.path(), moved);
    if (!struck)
        returnPageFiles(folder, programFolder);
    return struck ? PageFilesAside{folder, *struck} : PageFilesAside{};
}

QHash<QString, QString> returnPageFiles(const QString& setAside, const QString& programFolder,
                                        const QStringList& acquired) {
    QHash<QString, QString> renamed;
    if (setAside.isEmpty())
        return renamed;
    ignoringErrors([&] { acquiredFiles::list(acquired, false); });
    const QDir files = pageFilesIn(setAside);
    for (const QString& name : files.entryList()) {
        const QString before = temporaryFolder(programFolder) + name;
        const QString path = moveWithoutReplacing(files.filePath(name), before, acquired.contains(before));
        if (!path.isEmpty() && path != before)
            renamed.insert(before, path);
    }
    QDir().rmdir(setAside);
    return renamed;
}

void deletePageFilesSetAside(const QString& setAside) {
    if (setAside.isEmpty())
        return;
    const QDir files = pageFilesIn(setAside);
    for (const QString& name : files.entryList())
        removeOrLog(files.filePath(name));
    QDir().rmdir(setAside);
    QDir().rmdir(QFileInfo(setAside).path());
}

namespace {

/// A kill may come between the listing of a file and its return. False where nobody can know which to return,
/// or one can't be.
bool returnListed(const QString& setAside, const QString& programFolder) {
    bool areReturned = true;
    const bool areKnown = ignoringErrors([&] {
        for (const QString& name : acquiredFiles::listed(temporaryFolder(programFolder)))
            if (const QString file = joinedPath(setAside, name); QFileInfo(file).isFile())
                areReturned &=
                    !moveWithoutReplacing(file, temporaryFolder(programFolder) + name, true).isEmpty();
    });
    return areKnown && areReturned;
}

QStringList foldersSetAside(const QString& programFolder) {
    const QDir parent(setAsideFolder(programFolder));
    QStringList folders;
    for (const QString& name : parent.entryList(QDir::Dirs | QDir::NoSymLinks | QDir::NoDotAndDotDot))
        folders << parent.filePath(name);
    return folders;
}

} // namespace

void deleteAllPageFilesSetAside(const QString& programFolder) {
    for (const QString& folder : foldersSetAside(programFolder))
        if (returnListed(folder, programFolder))
            deletePageFilesSetAside(folder);
}

void tidyAcquiredFiles(const QString& programFolder) {
    QStringList setAside;
    for (const QString& folder : foldersSetAside(programFolder))
        setAside += pageFilesIn(folder).entryList();
    acquiredFiles::tidy(temporaryFolderPath(programFolder), setAside);
}

void deleteFilesWithoutExtension(const QString& programFolder) {
    const QDir folder = filesIn(temporaryFolderPath(programFolder), {});
    for (const QString& name : folder.entryList())
        if (!name.contains(QLatin1Char('.')))
            removeOrLog(folder.filePath(name));
}

} // namespace tarsel
