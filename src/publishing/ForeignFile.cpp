// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/ForeignFile.h"

#include "base/IgnoringErrors.h"
#include "publishing/AlbumNames.h"
#include "publishing/AlbumRow.h"
#include "publishing/AlbumTemplate.h"
#include "publishing/AlbumUpdate.h"
#include "publishing/ReplaceQuestion.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

namespace tarsel {

namespace {

/// Whether an index begins as that of the one or the other template does.
bool isIndexOfAlbum(const QString& path) {
    constexpr qint64 headSize = 4096;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray head = file.read(headSize);
    return head.startsWith("<!-- Album Generated with Tarsel WebAlbum Plugin -->") ||
           head.contains("<meta name=\"generator\" content=\"Tarsel JPEG\">");
}

/// What an album of the rows writes into its places, but for the index.
class AlbumTargets {
public:
    AlbumTargets(const ListView& rows, const AlbumOptions& options, const AlbumNames& names) :
        m_rows(rows), m_options(options), m_names(names), m_template(albumTemplate(options, names)),
        m_resources(m_template->resources()) {}

    /// An album begins with them.
    bool hasBegun() const { return AlbumUpdate::stands(m_resources.front()); }
    QSet<QString> paths() const;

private:
    const ListView& m_rows;
    const AlbumOptions& m_options;
    const AlbumNames& m_names;
    const std::unique_ptr<AlbumTemplate> m_template;
    const std::vector<AlbumFile> m_resources;
};

QSet<QString> AlbumTargets::paths() const {
    constexpr int largeEnough = 1 << 20; // for all sizes of a picture
    QSet<QString> paths;
    for (const AlbumFile& each : m_resources)
        if (!AlbumUpdate::stands(each))
            paths << each.path;
    for (int i = 0; i < m_rows.count(); ++i) {
        AlbumRow row;
        row.name = m_rows.row(i).text;
        row.source = m_rows.row(i).tag;
        row.size = {largeEnough, largeEnough};
        if (m_options.settings.ModernTemplate == 0)
            paths << m_names.pagePath(row.name);
        for (const QString& file : m_template->pictureFiles(row))
            paths << file;
    }
    return paths;
}

/// Files in the folder with a name of a page, and all in the album's own folder. Links are never written to.
QStringList filesInPlaces(const AlbumNames& names) {
    QStringList found;
    const QDir folder = QFileInfo(names.index()).dir();
    for (const QString& file : folder.entryList(QDir::Files | QDir::NoSymLinks))
        if (names.isPage(file))
            found << names.fromFolder(file);
    QDirIterator pictures(names.directoryPath(), QDir::Files | QDir::NoSymLinks,
                          QDirIterator::Subdirectories);
    while (pictures.hasNext())
        found << pictures.next();
    found.sort();
    return found;
}

} // namespace

std::optional<QString> foreignFile(const ListView& lvPages, const AlbumOptions& options) {
    const AlbumNames names(options.settings.AlbumFolder, options.settings.AlbumTitle);
    const AlbumUpdate last(names);
    const QFileInfo index(names.index());
    if (index.isFile() && !index.isSymLink() && !isIndexOfAlbum(index.filePath()) &&
        !last.isAsRecorded(index.filePath()))
        return index.filePath();
    const AlbumTargets targets(lvPages, options, names);
    const bool isOurs = index.exists() || targets.hasBegun();
    if (isOurs && !(options.settings.OnlyChanged == 1 && last.hasRecord()))
        return {};
    const QStringList found = filesInPlaces(names);
    if (found.isEmpty())
        return {};
    const QSet<QString> paths = targets.paths();
    for (const QString& file : found)
        if (paths.contains(file) && !last.isRecorded(file))
            return file;
    return {};
}

bool mayReplaceForeignFiles(const ListView& lvPages, const AlbumOptions& options) {
    std::optional<QString> file;
    ignoringErrors([&] { file = foreignFile(lvPages, options); }); // the run reports them
    return !file ||
           mayReplace(*file, QCoreApplication::translate(
                                 "ForeignFile", "It is not part of an album. Would You Like To Replace "
                                                "It, And All Files With Names Of The Album?"));
}

} // namespace tarsel
