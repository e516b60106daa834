// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/AlbumUpdate.h"

#include "base/IgnoringErrors.h"
#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "publishing/AlbumFields.h"
#include "publishing/AlbumNames.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

constexpr qint64 largestRecord = 64 << 20;

AlbumRecord readRecord(const QString& path) {
    AlbumRecord record;
    ignoringErrors([&] {
        if (QFileInfo(path).size() <= largestRecord)
            record = AlbumRecord::parsed(readWholeFile(path));
    });
    return record;
}

void addFile(QDataStream& stream, const QString& path) {
    const auto stamp = AlbumRecord::Stamp::of(path);
    stream << path << stamp.size << stamp.modified;
}

RowResult notNeeded(const QString& path, const QString& fact) {
    RowResult result;
    result.target = path;
    result.skip(SkipReason::NotNeeded, fact);
    return result;
}

} // namespace

QByteArray albumDigest(const QString& source, const settings::Album& settings, bool upright,
                       const std::vector<TaskRow>& tasks) {
    QByteArray all;
    QDataStream stream(&all, QIODevice::WriteOnly);
    stream << QCoreApplication::applicationVersion();
    addFile(stream, source);
    stream << settings.ModernTemplate << settings.Quality << settings.Progressive << settings.Resample
           << settings.ThumbnailWidth << settings.ThumbnailHeight << settings.StripPrivate
           << offersOriginals(settings) << upright;
    for (const TaskRow& task : tasks) {
        stream << task.kind << task.key;
        for (const QString& column : task.columns) // one can name a file, such as that of a watermark
            column.contains(QLatin1Char('/')) ? addFile(stream, column) : void(stream << column);
    }
    return QCryptographicHash::hash(all, QCryptographicHash::Sha256).toHex();
}

AlbumUpdate::AlbumUpdate(const AlbumNames& names) : m_names(names), m_old(readRecord(recordPath())) {}

QString AlbumUpdate::recordPath() const {
    return m_names.inDirectory(QStringLiteral(".album-record"));
}

bool AlbumUpdate::isRecorded(const QString& path) const {
    return m_old.files.contains(m_names.inFolder(path));
}

bool AlbumUpdate::isAsRecorded(const QString& path) const {
    const auto file = m_old.files.find(m_names.inFolder(path));
    return file != m_old.files.end() && *file == AlbumRecord::Stamp::of(path);
}

std::optional<QSize> AlbumUpdate::currentSize(const QString& row, const QByteArray& digest,
                                              const std::function<QStringList(QSize)>& filesOf) const {
    const auto made = m_old.rows.find(row);
    if (made == m_old.rows.end() || made->digest != digest)
        return {};
    const QStringList files = filesOf(made->size);
    const bool allStand = std::ranges::all_of(files, [&](const QString& path) { return isAsRecorded(path); });
    return allStand ? std::optional(made->size) : std::nullopt;
}

bool AlbumUpdate::stands(const AlbumFile& file) {
    QFile present(file.path);
    return present.size() == file.bytes.size() && QFileInfo(file.path).isFile() &&
           present.open(QIODevice::ReadOnly) && present.readAll() == file.bytes;
}

void AlbumUpdate::noteFile(const QString& path) {
    m_new.files.insert(m_names.inFolder(path), AlbumRecord::Stamp::of(path));
}

void AlbumUpdate::noteRow(const QString& name, const QByteArray& digest, QSize size) {
    m_new.rows.insert(name, {digest, size});
}

void AlbumUpdate::keepRow(const QString& name, const std::function<QStringList(QSize)>& filesOf) {
    const auto row = m_old.rows.find(name);
    if (row == m_old.rows.end())
        return;
    noteRow(name, {}, row->size);
    for (const QString& path : filesOf(row->size))
        if (const auto file = m_old.files.find(m_names.inFolder(path)); file != m_old.files.end())
            m_new.files.insert(file.key(), *file);
}

/// A link may lead elsewhere.
bool AlbumUpdate::isInside(const QString& path) const {
    const QString folder = QFileInfo(m_names.index()).canonicalPath() + QLatin1Char('/');
    return (QFileInfo(path).canonicalPath() + QLatin1Char('/')).startsWith(folder);
}

/// A record can come from anybody.
bool AlbumUpdate::isNamedLikeOurs(const QString& name) const {
    return name == m_names.inFolder(m_names.index()) || m_names.isPage(name) ||
           name.startsWith(m_names.directory() + QLatin1Char('/'));
}

/// Files in the places of an album's files that neither this run nor the last has written.
QStringList AlbumUpdate::strangers() const {
    QStringList found;
    const auto add = [&](const QString& path) {
        const QString name = m_names.inFolder(path);
        if (!m_new.files.contains(name) && !m_old.files.contains(name))
            found << path;
    };
    QDirIterator pictures(m_names.directoryPath(), QDir::Files, QDirIterator::Subdirectories);
    while (pictures.hasNext())
        add(pictures.next());
    const QFileInfo index(m_names.index());
    for (const QString& file : index.dir().entryList(QDir::Files))
        if (m_names.isPage(file))
            add(index.dir().filePath(file));
    found.sort();
    return found;
}

std::vector<RowResult> AlbumUpdate::finish(const std::function<bool(const QString&)>& mayRemove) {
    std::vector<RowResult> results;
    QStringList old = m_old.files.keys();
    old.sort();
    for (const QString& name : old) {
        const QString path = m_names.fromFolder(name);
        if (m_new.files.contains(name) || !QFileInfo(path).isFile() || !isNamedLikeOurs(name))
            continue;
        const bool isRemoved = AlbumRecord::Stamp::of(path) == m_old.files[name] && isInside(path) &&
                               mayRemove(path) && QFile::remove(path);
        results.push_back(notNeeded(
            path, isRemoved
                      ? QCoreApplication::translate("AlbumUpdate", "removed: the album no longer needs it")
                      : QCoreApplication::translate(
                            "AlbumUpdate", "not needed, and kept: it was changed since, or is a source")));
    }
    for (const QString& path : strangers())
        results.push_back(
            notNeeded(path, QCoreApplication::translate(
                                "AlbumUpdate", "not part of the album, and kept: no run recorded it")));
    write();
    return results;
}

void AlbumUpdate::suspend() {
    for (auto file = m_old.files.begin(); file != m_old.files.end(); ++file)
        if (!m_new.files.contains(file.key()))
            m_new.files.insert(file.key(), *file);
    for (auto row = m_old.rows.begin(); row != m_old.rows.end(); ++row)
        if (!m_new.rows.contains(row.key()))
            m_new.rows.insert(row.key(), *row);
    write();
}

void AlbumUpdate::write() {
    const AlbumFile record{recordPath(), m_new.text()};
    if (QFileInfo(record.path).isSymLink())
        fail(ErrorNumber::PermissionDenied, record.path);
    if (!stands(record))
        writeFileSafely(record.path, record.bytes);
}

} // namespace tarsel
