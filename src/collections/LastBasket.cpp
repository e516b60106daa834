// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LastBasket.h"

#include "base/AcquiredFiles.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/clsFile.h"
#include "collections/BasketFile.h"
#include "collections/PageFiles.h"
#include "collections/modFileSystem.h"

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

constexpr QLatin1String fileName{"last-basket.ibd"};
constexpr QLatin1String titlesName{"last-basket-titles.ibd"};

QString fileIn(const QString& programFolder) {
    return QDir(programFolder).filePath(fileName);
}

QString titlesIn(const QString& programFolder) {
    return QDir(programFolder).filePath(titlesName);
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

/// What the rows of a source have, in their order.
struct RowTexts {
    QStringList descriptions;
    QStringList titles;
};

struct KeptSource {
    QString path;
    RowTexts texts;
};

template <class Entries>
QHash<QString, RowTexts> textsBySource(const Entries& entries) {
    QHash<QString, RowTexts> texts;
    for (const BasketEntry& entry : entries) {
        texts[entry.path].descriptions << entry.description;
        texts[entry.path].titles << entry.title;
    }
    return texts;
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
        places[path]->texts.descriptions << lvPages.subItem(row, BasketColumn::Description);
        places[path]->texts.titles << lvPages.row(row).text;
    }
    const QHash<QString, RowTexts> known = textsBySource(awaited);
    for (const AwaitedEntry& entry : awaited) {
        if (!places.contains(entry.path)) {
            const auto before = places.value(entry.after, kept.end());
            const auto place = entry.after.isEmpty()  ? kept.begin()
                               : before == kept.end() ? before
                                                      : std::next(before);
            places.insert(entry.path, kept.insert(place, {entry.path, {}}));
        }
        if (RowTexts& texts = places[entry.path]->texts; areEmpty(texts.descriptions))
            texts = known[entry.path];
    }
    return kept;
}

/// One line for a source, or as many as it has rows with a text. The format has no escape for a double quote.
void write(const QString& path, const std::list<KeptSource>& sources, QStringList RowTexts::*texts) {
    clsFile file;
    if (!file.OpenForWrite(path))
        throw *file.openError();
    for (const KeptSource& source : sources) {
        if (source.path.contains(QLatin1Char('"'))) {
            logIgnored(source.path + QStringLiteral(": not kept in the last basket"));
            continue;
        }
        QStringList lines = source.texts.*texts;
        while (lines.size() > 1 && lines.last().isEmpty())
            lines.removeLast();
        for (const QString& each : lines)
            file.write_ImageBasket(source.path, each.contains(QLatin1Char('"')) ? QString() : each);
    }
    file.closefile();
}

/// Titles without their file's row are left out, such as those of an older basket. Raises why the file of
/// descriptions can't be read.
std::vector<BasketEntry> keptEntries(const QString& programFolder) {
    std::vector<BasketEntry> entries = modSaveOpenImageList::readBasketEntries(fileIn(programFolder));
    std::vector<BasketEntry> titles;
    ignoringErrors([&] { titles = modSaveOpenImageList::readBasketEntries(titlesIn(programFolder)); });
    QHash<QString, std::vector<size_t>> linesOf;
    for (size_t i = entries.size(); i-- > 0;)
        linesOf[entries[i].path].push_back(i);
    for (const BasketEntry& each : titles) {
        const auto lines = linesOf.find(each.path);
        if (lines == linesOf.end())
            continue;
        if (lines->empty()) { // a row without a description, behind the last one that has one
            entries.push_back({.path = each.path, .description = {}, .title = each.description});
            continue;
        }
        entries[lines->back()].title = each.description;
        lines->pop_back();
    }
    return entries;
}

/// Rows of a basket file are called by the whole names of their files.
QString titleWithoutExtension(const ListView& lvPages, int row) {
    const QString name = QFileInfo(lvPages.subItem(row, BasketColumn::SourcePath)).fileName();
    const QString& title = lvPages.row(row).text;
    return title.startsWith(name) ? modFileSystem::GetFileTitle(name) + title.mid(name.size()) : title;
}

/// By their sources: a file that is missing, or a page, shifts none of the others.
void giveTexts(ListView& lvPages, int firstRow, const std::vector<BasketEntry>& entries) {
    QHash<QString, RowTexts> left = textsBySource(entries);
    for (int row = firstRow; row < lvPages.count(); ++row) {
        RowTexts& texts = left[lvPages.subItem(row, BasketColumn::SourcePath)];
        if (!texts.descriptions.isEmpty())
            lvPages.setSubItem(row, BasketColumn::Description, texts.descriptions.takeFirst());
        const QString title = texts.titles.isEmpty() ? QString() : texts.titles.takeFirst();
        lvPages.setText(row, title.isEmpty() ? titleWithoutExtension(lvPages, row) : title);
    }
}

bool fillFrom(const QString& programFolder, Basket& basket, ListView& lvPages) {
    basket.empty();
    std::vector<BasketEntry> entries;
    if (failureOf([&] { entries = keptEntries(programFolder); }))
        return false;
    QStringList paths;
    for (const BasketEntry& entry : entries)
        paths << entry.path;
    paths.removeDuplicates();
    basket.await(entries);
    if (!paths.isEmpty())
        std::ignore = basket.addListedFiles(paths);
    giveTexts(lvPages, 0, entries);
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

bool isOneOfItsFiles(const QString& name) {
    return name == fileName || name == titlesName;
}

void keep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited, const QString& programFolder) {
    if (lvPages.isEmpty())
        return;
    const std::list<KeptSource> sources = sourcesToKeep(lvPages, awaited);
    write(fileIn(programFolder), sources, &RowTexts::descriptions);
    write(titlesIn(programFolder), sources, &RowTexts::titles);
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
    const bool isOpened = hasKept ? fillFrom(programFolder, basket, lists.lvPages) : aside.isEmpty();
    if (hasKept && basket.wasStopped())
        return isOpened;
    const QStringList lacking = acquiredWithout([&] { return sourcesOf(lists.lvPages); }, programFolder);
    const int firstLacking = lists.lvPages.count();
    if (!lacking.isEmpty())
        std::ignore = basket.addListedFiles(lacking);
    giveTexts(lists.lvPages, firstLacking, {});
    return isOpened;
}

} // namespace tarsel::lastBasket
