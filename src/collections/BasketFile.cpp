// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketFile.h"

#include "base/ErrorTrap.h"
#include "base/clsFile.h"

#include <QCoreApplication>
#include <QHash>
#include <QScopeGuard>
#include <QSet>
#include <algorithm>
#include <vector>

namespace tarsel::modSaveOpenImageList {

namespace {

constexpr QLatin1String plainExtension(".ibf");
constexpr QLatin1String describedExtension(".ibd");
constexpr int describedFilter = 3;

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(BasketFile)
};

QStringList distinctSources(const ListView& lvPages) {
    QStringList sources;
    QSet<QString> known;
    for (int row = 0; row < lvPages.count(); ++row) {
        const QString source = lvPages.subItem(row, BasketColumn::SourcePath);
        if (known.contains(source))
            continue;
        known.insert(source);
        sources << source;
    }
    return sources;
}

/// A plain entry ends with its line, and a path in the described form with its quote: such a path would read
/// back as other files. Error 5 for one.
void requireStorable(const QString& path, bool described) {
    const bool storable = described ? !path.contains(QLatin1Char('"'))
                                    : !path.contains(QLatin1Char('\n')) && !path.contains(QLatin1Char('\r'));
    if (!storable)
        fail(ErrorNumber::InvalidCall,
             (described ? Texts::tr("%1: this kind of list can't hold a name with a double quote")
                        : Texts::tr("%1: this kind of list can't hold a name with a line break"))
                 .arg(path));
}

void writeEntries(clsFile& file, bool described, const ListView& lvPages) {
    const QStringList sources = distinctSources(lvPages);
    for (const QString& source : sources)
        requireStorable(source, described);
    for (int i = 0; i < sources.size(); ++i) {
        // The description of row i, not of that path's row: after the pages of a document the two differ.
        if (described)
            file.write_ImageBasket(sources[i], lvPages.subItem(i, BasketColumn::Description));
        else
            file.writeline(sources[i]);
    }
    file.closefile();
}

/// The path of a plain line: its first and last character, the quotes, are dropped unchecked. Error 5 for a
/// line without room for them.
QString pathOfLine(const QString& line, const QString& file, size_t number) {
    const QString trimmed = line.trimmed();
    if (trimmed.size() < 2)
        fail(ErrorNumber::InvalidCall,
             Texts::tr("%1, line %2 holds no path").arg(file, QString::number(number)));
    return trimmed.mid(1, trimmed.size() - 2);
}

/// After a stop, which leaves the rows that were complete, of whatever numbers.
void describeByPath(const std::vector<BasketEntry>& entries, ListView& lvPages) {
    QHash<QString, QString> descriptions;
    for (const BasketEntry& entry : entries)
        descriptions.insert(entry.path, entry.description);
    for (int row = 0; row < lvPages.count(); ++row)
        lvPages.setSubItem(row, BasketColumn::Description,
                           descriptions.value(lvPages.subItem(row, BasketColumn::SourcePath)));
}

void addEntries(const std::vector<BasketEntry>& entries, Basket& basket, CollectionLists& lists) {
    QStringList paths;
    for (const BasketEntry& entry : entries)
        paths << entry.path;
    basket.await(entries); // the session may end in between
    const auto done = qScopeGuard([&] { basket.awaited().clear(); });
    if (!basket.addListedFiles(paths))
        return describeByPath(entries, lists.lvPages);
    // Paired by number: after a document or a missing file the description is another row's.
    for (int i = 0; i < std::min(int(entries.size()), lists.lvPages.count()); ++i)
        lists.lvPages.setSubItem(i, BasketColumn::Description, entries[size_t(i)].description);
}

void readDescribed(clsFile& file, const QString& path, size_t record, BasketEntry& entry) {
    try {
        file.read_ImageBasket(entry.path, entry.description);
    } catch (TrappedError& error) {
        error.description =
            Texts::tr("%1, record %2: %3").arg(path, QString::number(record), error.description);
        throw;
    }
}

std::vector<BasketEntry> readEntries(clsFile& file, const QString& path) {
    const bool plain = path.endsWith(plainExtension, Qt::CaseInsensitive);
    const bool described = path.endsWith(describedExtension, Qt::CaseInsensitive);
    std::vector<BasketEntry> entries;
    while ((plain || described) && !file.fEof()) {
        BasketEntry entry;
        if (plain)
            entry.path = pathOfLine(file.readLine(), path, entries.size() + 1);
        else
            readDescribed(file, path, entries.size() + 1, entry);
        entries.push_back(std::move(entry));
    }
    return entries;
}

/// Reports why a file could not be opened.
bool refused(const clsFile& file, QString* openFault) {
    if (openFault)
        *openFault = file.openError()->description;
    return false;
}

} // namespace

bool isBasketFile(const QString& path) {
    return path.endsWith(plainExtension, Qt::CaseInsensitive) ||
           path.endsWith(describedExtension, Qt::CaseInsensitive);
}

std::vector<BasketEntry> readBasketEntries(const QString& path) {
    clsFile file;
    if (!file.OpenForRead(path))
        throw *file.openError();
    return readEntries(file, path);
}

QString basketFilePath(int filterIndex, const QString& path) {
    const bool complete =
        filterIndex == describedFilter || path.endsWith(plainExtension, Qt::CaseInsensitive);
    return complete ? path : path + plainExtension;
}

void writeBasketFile(int filterIndex, const QString& path, const ListView& lvPages) {
    clsFile file;
    if (!file.OpenForWrite(basketFilePath(filterIndex, path)))
        throw *file.openError();
    writeEntries(file, filterIndex == describedFilter, lvPages);
}

bool fncSaveImageBasket(int filterIndex, const QString& path, const ListView& lvPages, QString* openFault) {
    if (lvPages.isEmpty()) {
        if (openFault)
            *openFault = Texts::tr("There are no pictures in the basket.");
        return false;
    }
    clsFile file;
    if (!file.OpenForWrite(basketFilePath(filterIndex, path)))
        return refused(file, openFault);
    return !trap("modSaveOpenImageList.fncSaveImageBasket",
                 [&] { writeEntries(file, filterIndex == describedFilter, lvPages); });
}

bool fncOpenImageBasket(const QString& path, Basket& basket, CollectionLists& lists, QString* openFault) {
    basket.empty();
    clsFile file;
    if (!file.OpenForRead(path))
        return refused(file, openFault);
    return !trap("modSaveOpenImageList.fncOpenImageBasket", [&] {
        const std::vector<BasketEntry> entries = readEntries(file, path);
        if (!entries.empty())
            addEntries(entries, basket, lists);
    });
}

} // namespace tarsel::modSaveOpenImageList
