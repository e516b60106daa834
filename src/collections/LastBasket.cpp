// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LastBasket.h"

#include "base/AcquiredFiles.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "base/clsFile.h"
#include "collections/BasketFile.h"
#include "collections/PageFiles.h"
#include "collections/UnwaitedWork.h"
#include "collections/clsFileInfo.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <functional>
#include <iterator>
#include <list>
#include <optional>
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

using Lines = std::vector<BasketEntry>;

struct RowTexts {
    QString description;
    QString title;
};

/// Of a document by page, without texts for pages that have no row; one of any other file.
using SourceTexts = std::vector<RowTexts>;

struct KeptSource {
    QString path;
    SourceTexts texts;
};

template <class Entries>
QHash<QString, SourceTexts> textsBySource(const Entries& entries) {
    QHash<QString, SourceTexts> texts;
    for (const BasketEntry& entry : entries)
        texts[entry.path].push_back({entry.description, entry.title});
    return texts;
}

/// Where its texts stand among those of its source.
size_t placeOf(const ListRow& row) {
    return size_t(std::max(row.key.toInt(), 1) - 1);
}

RowTexts& textsAt(SourceTexts& texts, size_t place) {
    texts.resize(std::max(texts.size(), place + 1));
    return texts[place];
}

QString titleOf(AddedBy addedBy, const ListRow& row) {
    const QString name = clsFileInfo::StripFileFromPath(row.subItems.value(BasketColumn::SourcePath - 1));
    return row.key.isEmpty() ? rowName(addedBy, name) : pageRowName(addedBy, name, row.key.toInt());
}

/// What nobody has typed yet is as it was known before.
void complete(SourceTexts& texts, const SourceTexts& known) {
    for (size_t place = 0; place < known.size(); ++place) {
        RowTexts& own = textsAt(texts, place);
        if (own.description.isEmpty())
            own.description = known[place].description;
        if (own.title.isEmpty())
            own.title = known[place].title;
    }
}

/// In the order of the rows; one without a row follows the one that was before it.
std::list<KeptSource> sourcesToKeep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited) {
    std::list<KeptSource> kept;
    QHash<QString, std::list<KeptSource>::iterator> places;
    QHash<QString, SourceTexts> known = textsBySource(awaited);
    for (int index = 0; index < lvPages.count(); ++index) {
        const ListRow& row = lvPages.row(index);
        const QString path = row.subItems.value(BasketColumn::SourcePath - 1);
        if (!places.contains(path))
            places.insert(path, kept.insert(kept.end(), {path, {}}));
        RowTexts& texts = textsAt(places[path]->texts, placeOf(row));
        if (texts.title.isEmpty() && texts.description.isEmpty())
            texts = {row.subItems.value(BasketColumn::Description - 1), row.text};
        if (known.contains(path) && texts.title == titleOf(AddedBy::BasketFile, row))
            texts.title.clear();
    }
    for (const AwaitedEntry& entry : awaited) {
        if (!places.contains(entry.path)) {
            const auto before = places.value(entry.after, kept.end());
            const auto place = entry.after.isEmpty()  ? kept.begin()
                               : before == kept.end() ? before
                                                      : std::next(before);
            places.insert(entry.path, kept.insert(place, {entry.path, {}}));
        }
        complete(places[entry.path]->texts, known.take(entry.path));
    }
    return kept;
}

/// One line for a source, or for its pages up to the last one that has that text. The format has no escape
/// for a double quote.
void write(const QString& path, const std::list<KeptSource>& sources, QString RowTexts::*text) {
    clsFile file;
    if (!file.OpenForWrite(path))
        throw *file.openError();
    for (const KeptSource& source : sources) {
        if (source.path.contains(QLatin1Char('"'))) {
            logIgnored(source.path + QStringLiteral(": not kept in the last basket"));
            continue;
        }
        size_t count = source.texts.size();
        while (count > 1 && (source.texts[count - 1].*text).isEmpty())
            --count;
        for (size_t place = 0; place < count; ++place)
            file.write_ImageBasket(source.path,
                                   QString(source.texts[place].*text).replace(u'"', QStringLiteral("''")));
    }
    file.closefile();
}

/// Titles of files that it doesn't name are left out, such as those of an older basket.
Lines withTitles(Lines entries, const Lines& titles) {
    QHash<QString, std::vector<size_t>> linesOf;
    for (size_t i = entries.size(); i-- > 0;)
        linesOf[entries[i].path].push_back(i);
    for (const BasketEntry& each : titles) {
        const auto lines = linesOf.find(each.path);
        if (lines == linesOf.end())
            continue;
        if (lines->empty()) { // a page behind the last one that is described
            entries.push_back({.path = each.path, .description = {}, .title = each.description});
            continue;
        }
        entries[lines->back()].title = each.description;
        lines->pop_back();
    }
    return entries;
}

/// Leaves what the user has typed in the meantime.
void giveTexts(ListView& lvPages, int firstRow, const std::vector<BasketEntry>& entries) {
    const QHash<QString, SourceTexts> known = textsBySource(entries);
    for (int index = firstRow; index < lvPages.count(); ++index) {
        const ListRow& row = lvPages.row(index);
        const auto texts = known.constFind(row.subItems.value(BasketColumn::SourcePath - 1));
        const size_t place = placeOf(row);
        const RowTexts kept = texts != known.cend() && place < texts->size() ? (*texts)[place] : RowTexts();
        if (row.text == titleOf(AddedBy::BasketFile, row))
            lvPages.setText(index, kept.title.isEmpty() ? titleOf(AddedBy::Button, row) : kept.title);
        if (!kept.description.isEmpty() && lvPages.subItem(index, BasketColumn::Description).isEmpty())
            lvPages.setSubItem(index, BasketColumn::Description, kept.description);
    }
}

void fill(Basket& basket, ListView& lvPages, const Lines& entries) {
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
}

/// Page files of earlier sessions, which no row has.
QStringList earlierPages(const ListView& lvPages, const QString& programFolder) {
    QStringList names = pageFileNames(programFolder);
    QSet<QString> used;
    for (int row = 0; row < lvPages.count(); ++row)
        used << clsFileInfo::StripFileFromPath(lvPages.row(row).tag);
    names.removeIf([&](const QString& name) { return used.contains(name); });
    return names;
}

/// Of documents whose pages have files of this session now. Nobody waits for it.
void deleteEarlierPages(QStringList names, const ListView& lvPages, const QString& folder) {
    QSet<QString> documents;
    for (int row = 0; row < lvPages.count(); ++row)
        if (!lvPages.row(row).key.isEmpty())
            documents << clsFileInfo::StripFileFromPath(lvPages.subItem(row, BasketColumn::SourcePath));
    names.removeIf([&](const QString& name) { return !documents.contains(documentOfPageFile(name)); });
    if (!names.isEmpty())
        std::ignore = startUnwaited([names, folder] {
            for (const QString& name : names)
                deletePageFile(joinedPath(folder, name));
        });
}

/// None of a file that is missing or can't be opened, or that is damaged, which gets the name `aside`.
std::optional<Lines> linesOrAside(const QString& file, QString& aside) {
    std::optional<Lines> lines;
    const auto failure = failureOf([&] { lines = modSaveOpenImageList::readBasketEntries(file); });
    const bool isDamaged = failure && QFile(file).open(QIODevice::ReadOnly);
    const QString name = isDamaged ? nameOfDamaged(file) : QString();
    if (isDamaged && QFile::rename(file, name))
        aside = name;
    return lines;
}

} // namespace

bool isOneOfItsFiles(const QString& name) {
    return name == fileName || name == titlesName;
}

void keep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited, const QString& programFolder) {
    if (lvPages.isEmpty())
        return;
    const std::list<KeptSource> sources = sourcesToKeep(lvPages, awaited);
    write(fileIn(programFolder), sources, &RowTexts::description);
    write(titlesIn(programFolder), sources, &RowTexts::title);
}

bool isKept(const QString& programFolder) {
    return QFileInfo::exists(fileIn(programFolder));
}

QStringList acquiredBeside(const QString& programFolder) {
    return acquiredWithout([&] { return keptSources(programFolder); }, programFolder);
}

bool reopen(Basket& basket, CollectionLists& lists, const QString& programFolder, QString* damaged) {
    QString aside, titlesAside;
    const std::optional<Lines> lines = linesOrAside(fileIn(programFolder), aside);
    const std::optional<Lines> titles = linesOrAside(titlesIn(programFolder), titlesAside);
    if (damaged)
        *damaged = aside.isEmpty() ? titlesAside : aside;
    const bool hasKept = isKept(programFolder);
    const bool isOpened = hasKept ? lines.has_value() : aside.isEmpty();
    const QString folder = temporaryFolder(programFolder);
    const QStringList earlier = earlierPages(lists.lvPages, programFolder);
    if (hasKept)
        basket.empty();
    if (lines)
        fill(basket, lists.lvPages, withTitles(*lines, titles.value_or(Lines())));
    if (hasKept && basket.wasStopped())
        return isOpened;
    deleteEarlierPages(earlier, lists.lvPages, folder);
    const QStringList lacking = acquiredWithout([&] { return sourcesOf(lists.lvPages); }, programFolder);
    const int firstLacking = lists.lvPages.count();
    if (!lacking.isEmpty())
        std::ignore = basket.addListedFiles(lacking);
    giveTexts(lists.lvPages, firstLacking, {});
    return isOpened;
}

} // namespace tarsel::lastBasket
