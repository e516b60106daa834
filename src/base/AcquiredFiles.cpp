// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/AcquiredFiles.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <iterator>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel::acquiredFiles {

namespace {

constexpr char added = '+';
constexpr char struck = '-';

QString listIn(const QString& folder) {
    return joinedPath(folder, QStringLiteral("acquired.txt"));
}

/// Names are percent-encoded: one may hold a line break.
QByteArray linesOf(char sign, const QStringList& paths) {
    QByteArray lines("\n"); // ends a line that a crash of the system cut short
    for (const QString& path : paths)
        lines += sign + QUrl::toPercentEncoding(QFileInfo(path).fileName()) + '\n';
    return lines;
}

/// In one call, so that the lines of two threads don't mix.
void append(const QString& path, const QByteArray& lines, bool isDurable) {
    const int file = ::open(QFile::encodeName(path).constData(),
                            O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0666);
    if (file < 0)
        failForErrno(errno, path);
    struct stat status = {};
    const bool isRegular = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode); // a pipe might never end
    const ssize_t written = isRegular ? ::write(file, lines.constData(), size_t(lines.size())) : 0;
    int reason = !isRegular ? EINVAL : written < 0 ? errno : written < lines.size() ? ENOSPC : 0;
    if (reason == 0 && isDurable && ::fsync(file) != 0)
        reason = errno;
    ::close(file);
    if (reason != 0)
        failForErrno(reason, path);
}

/// A cut line, or one that a stranger wrote, names no file of the folder.
bool isFileName(const QString& name) {
    return !name.isEmpty() && !name.contains(QLatin1Char('/')) && !name.contains(QChar(0)) &&
           name != QLatin1String(".") && name != QLatin1String("..");
}

struct Contents {
    QStringList names;         ///< in the order in which they came, and whatever came of them
    QHash<QString, bool> last; ///< whether each was added at last
    bool isWhole = true;       ///< every line could be understood

    QStringList listed() const {
        QStringList all = names;
        all.removeIf([&](const QString& name) { return !last[name]; });
        return all;
    }
};

Contents contentsOf(const QByteArray& lines) {
    Contents contents;
    for (const QByteArray& line : lines.split('\n')) {
        const bool isName = line.startsWith(added) || line.startsWith(struck);
        if ((!isName && !line.isEmpty()) || line.contains('\0')) // as a crash of the system may leave it
            contents.isWhole = false;
        const QString name = isName ? QUrl::fromPercentEncoding(line.mid(1)) : QString();
        if (!isFileName(name))
            continue;
        if (!contents.last.contains(name))
            contents.names << name;
        contents.last[name] = line.startsWith(added);
    }
    return contents;
}

Contents contentsIn(const QString& folder) {
    const QString path = listIn(folder);
    return isNameTaken(path) ? contentsOf(readWholeFile(path)) : Contents();
}

/// All that a damaged list may have named.
QStringList guessed(const Contents& contents, const QString& folder, const QStringList& elsewhere) {
    static const QRegularExpression pageOfDocument(QStringLiteral(R"(^\d*[^\d_].*_\d+\.tif$)"));
    QStringList names = contents.listed();
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.tif")}, QDir::Files) + elsewhere)
        if (!contents.last.contains(name) && !pageOfDocument.match(name).hasMatch())
            names << name;
    return names;
}

} // namespace

void list(const QStringList& paths, bool isDurable) {
    if (!paths.isEmpty())
        append(listIn(QFileInfo(paths.front()).path()), linesOf(added, paths), isDurable);
}

void listIfIn(const QString& folder, const QString& path) {
    const QFileInfo file(path);
    const QString real = QFileInfo(folder).canonicalFilePath();
    if (!real.isEmpty() && QFileInfo(file.path()).canonicalFilePath() == real)
        list({joinedPath(folder, file.fileName())}, true);
}

void listAgain(const QString& folder, const QStringList& paths) {
    QStringList inFolder;
    for (const QString& path : paths)
        if (isInFolder(path, folder))
            inFolder << joinedPath(folder, QFileInfo(path).fileName());
    if (inFolder.isEmpty())
        return;
    ignoringErrors([&] {
        const Contents contents = contentsIn(folder);
        inFolder.removeIf(
            [&](const QString& path) { return contents.last.value(QFileInfo(path).fileName()); });
        list(inFolder, false);
    });
}

QStringList listed(const QString& folder) {
    const Contents contents = contentsIn(folder);
    if (!contents.isWhole)
        fail(ErrorNumber::UnreadableFile, listIn(folder));
    return contents.listed();
}

QStringList present(const QString& folder) {
    QStringList paths;
    for (const QString& name : listed(folder))
        if (const QString path = joinedPath(folder, name); QFileInfo(path).isFile())
            paths << path;
    return paths;
}

std::optional<QStringList> strike(const QString& folder, const QStringList& paths) {
    QStringList found;
    const bool isDone = ignoringErrors([&] {
        const QStringList listedNames = listed(folder);
        const QSet<QString> names(listedNames.begin(), listedNames.end());
        if (names.isEmpty())
            return; // as nearly always, of whatever many paths
        std::ranges::copy_if(paths, std::back_inserter(found), [&](const QString& path) {
            return names.contains(QFileInfo(path).fileName()) && isInFolder(path, folder);
        });
        if (!found.isEmpty())
            append(listIn(folder), linesOf(struck, found), false);
    });
    return isDone ? std::optional(found) : std::nullopt;
}

void tidy(const QString& folder, const QStringList& elsewhere) {
    ignoringErrors([&] {
        const QString path = listIn(folder);
        if (!isNameTaken(path))
            return;
        const QByteArray before = readWholeFile(path);
        const Contents contents = contentsOf(before);
        QStringList names = contents.isWhole ? contents.listed() : guessed(contents, folder, elsewhere);
        names.removeIf([&](const QString& name) {
            return !QFileInfo(joinedPath(folder, name)).isFile() && !elsewhere.contains(name);
        });
        if (names.isEmpty())
            QFile::remove(path);
        else if (const QByteArray lines = linesOf(added, names); lines != before)
            writeFileSafely(path, lines);
    });
}

} // namespace tarsel::acquiredFiles
