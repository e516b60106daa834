// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LastBasket.h"

#include "base/AcquiredFiles.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/clsFile.h"
#include "collections/BasketFile.h"
#include "collections/PageFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <functional>
#include <iterator>
#include <list>
#include <tuple>

namespace tarsel::lastBasket {

namespace {

QString fileIn(const QString& programFolder) {
    return QDir(programFolder).filePath(QLatin1String(fileName));
}

/// `sources` is asked only when there are any.
QStringList acquiredWithout(const std::function<QStringList()>& sources, const QString& programFolder) {
    QStringList paths;
    ignoringErrors([&] { paths = acquiredFiles::present(temporaryFolder(programFolder)); });
    if (paths.isEmpty())
        return paths;
    QSet<QString> known;
    for (const QString& source : sources())
        known << QDir::cleanPath(source);
    paths.removeIf([&](const QString& path) { return known.contains(QDir::cleanPath(path)); });
    return paths;
}

QStringList keptSources(const QString& programFolder) {
    QStringList sources;
    if (isKept(programFolder))
        ignoringErrors([&] {
            for (const auto& entry : modSaveOpenImageList::readBasketEntries(fileIn(programFolder)))
                sources << entry.path;
        });
    return sources;
}

QStringList sourcesOf(const ListView& lvPages) {
    QStringList sources;
    for (int row = 0; row < lvPages.count(); ++row)
        sources << lvPages.subItem(row, BasketColumn::SourcePath);
    return sources;
}

using Descriptions = QHash<QString, QStringList>; ///< by source, in the order of its rows

/// A source with the descriptions of its rows.
struct KeptSource {
    QString path;
    QStringList descriptions;
};

template <class Entries>
Descriptions descriptionsOf(const Entries& entries) {
    Descriptions descriptions;
    for (const BasketEntry& entry : entries)
        descriptions[entry.path] << entry.description;
    return descriptions;
}

bool areEmpty(const QStringList& texts) {
    return std::ranges::all_of(texts, &QString::isEmpty);
}

/// In the order of the rows; one without a row follows the one that was before it. A row that is still to be
/// completed has no description yet.
std::list<KeptSource> sourcesToKeep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited) {
    std::list<KeptSource> kept;
    QHash<QString, std::list<KeptSource>::iterator> places;
    for (int row = 0; row < lvPages.count(); ++row) {
        const QString path = lvPages.subItem(row, BasketColumn::SourcePath);
        if (!places.contains(path))
            places.insert(path, kept.insert(kept.end(), {path, {}}));
        places[path]->descriptions << lvPages.subItem(row, BasketColumn::Description);
    }
    const Descriptions known = descriptionsOf(awaited);
    for (const AwaitedEntry& entry : awaited) {
        if (!places.contains(entry.path)) {
            const auto before = places.value(entry.after, kept.end());
            const auto place = entry.after.isEmpty()  ? kept.begin()
                               : before == kept.end() ? before
                                                      : std::next(before);
            places.insert(entry.path, kept.insert(place, {entry.path, {}}));
        }
        if (QStringList& texts = places[entry.path]->descriptions; areEmpty(texts))
            texts = known[entry.path];
    }
    return kept;
}

/// One line for a source, or as many as it has described rows. The format has no escape for a double quote.
void write(clsFile& file, const KeptSource& source) {
    if (source.path.contains(QLatin1Char('"')))
        return logIgnored(source.path + QStringLiteral(": not kept in the last basket"));
    QStringList descriptions = source.descriptions;
    while (descriptions.size() > 1 && descriptions.last().isEmpty())
        descriptions.removeLast();
    for (const QString& each : descriptions)
        file.write_ImageBasket(source.path, each);
}

/// By their sources: a file that is missing, or a page, shifts none of the others.
void describe(ListView& lvPages, const std::vector<BasketEntry>& entries) {
    Descriptions left = descriptionsOf(entries);
    for (int row = 0; row < lvPages.count(); ++row)
        if (QStringList& texts = left[lvPages.subItem(row, BasketColumn::SourcePath)]; !texts.isEmpty())
            lvPages.setSubItem(row, BasketColumn::Description, texts.takeFirst());
}

bool fillFrom(const QString& file, Basket& basket, ListView& lvPages) {
    basket.empty();
    std::vector<BasketEntry> entries;
    if (failureOf([&] { entries = modSaveOpenImageList::readBasketEntries(file); }))
        return false;
    QStringList paths;
    for (const BasketEntry& entry : entries)
        paths << entry.path;
    paths.removeDuplicates();
    basket.await(entries);
    if (!paths.isEmpty())
        std::ignore = basket.addListedFiles(paths);
    describe(lvPages, entries);
    const QStringList sources = sourcesOf(lvPages);
    const QSet<QString> listed(sources.begin(), sources.end());
    std::erase_if(basket.awaited(), [&](const AwaitedEntry& entry) { return listed.contains(entry.path); });
    return true;
}

/// The name that a damaged file got; empty for any other, and for one that can't be opened or renamed.
QString putDamagedAside(const QString& file) {
    const bool isReadable = QFile(file).open(QIODevice::ReadOnly);
    if (!isReadable || !failureOf([&] { std::ignore = modSaveOpenImageList::readBasketEntries(file); }))
        return {};
    const QString name = nameOfDamaged(file);
    return QFile::rename(file, name) ? name : QString();
}

} // namespace

void keep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited, const QString& programFolder) {
    if (lvPages.isEmpty())
        return;
    clsFile file;
    if (!file.OpenForWrite(fileIn(programFolder)))
        throw *file.openError();
    for (const KeptSource& source : sourcesToKeep(lvPages, awaited))
        write(file, source);
    file.closefile();
}

bool isKept(const QString& programFolder) {
    return QFileInfo::exists(fileIn(programFolder));
}

QStringList acquiredBeside(const QString& programFolder) {
    return acquiredWithout([&] { return keptSources(programFolder); }, programFolder);
}

bool reopen(Basket& basket, CollectionLists& lists, const QString& programFolder, QString* damaged) {
    const QString aside = putDamagedAside(fileIn(programFolder));
    if (damaged)
        *damaged = aside;
    const bool hasKept = isKept(programFolder);
    const bool isOpened = hasKept ? fillFrom(fileIn(programFolder), basket, lists.lvPages) : aside.isEmpty();
    if (hasKept && basket.wasStopped())
        return isOpened;
    const QStringList lacking = acquiredWithout([&] { return sourcesOf(lists.lvPages); }, programFolder);
    if (!lacking.isEmpty())
        std::ignore = basket.addListedFiles(lacking);
    return isOpened;
}

} // namespace tarsel::lastBasket
