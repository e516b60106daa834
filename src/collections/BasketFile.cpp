// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/BasketFile.h"

#include "base/Desktop.h"
#include "base/ErrorTrap.h"
#include "base/clsFile.h"
#include "collections/clsFileInfo.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <vector>

namespace tarsel::modSaveOpenImageList {

namespace {

const QLatin1String PlainExtension(".ibf");
const QLatin1String DescribedExtension(".ibd");
constexpr int DescribedFilter = 3;

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

void save(int filterIndex, QString path, const ListView& lvPages) {
    const bool described = filterIndex == DescribedFilter;
    if (!described && !path.endsWith(PlainExtension, Qt::CaseInsensitive))
        path += PlainExtension;
    clsFile file;
    if (!file.OpenForWrite(path))
        fail(QFileInfo(path).dir().exists() ? ErrorNumber::PermissionDenied : ErrorNumber::PathNotFound,
             path);
    const QStringList sources = distinctSources(lvPages);
    for (int i = 0; i < sources.size(); ++i) {
        // The description of row i, not of that path's row: behind the pages of a document the two differ.
        if (described)
            file.write_ImageBasket(sources[i], lvPages.subItem(i, BasketColumn::Description));
        else
            file.writeline(sources[i]);
    }
    file.closefile();
}

/// The path of a plain line: its first and last character, the quotes, are dropped unseen. Error 5 for a line
/// without room for them.
QString pathOfLine(const QString& line, const QString& file, size_t number) {
    const QString trimmed = line.trimmed();
    if (trimmed.size() < 2)
        fail(ErrorNumber::InvalidCall, QStringLiteral("%1, line %2 holds no path").arg(file).arg(number));
    return trimmed.mid(1, trimmed.size() - 2);
}

void addEntries(const std::vector<BasketEntry>& entries, Basket& basket, CollectionLists& lists) {
    lists.pbQueue.start(int(entries.size()), 1);
    for (int i = 0; i < int(entries.size()); ++i) {
        const BasketEntry& entry = entries[size_t(i)];
        desktop().yield();
        if (clsFileInfo::CheckIfFileExists(entry.path)) {
            basket.subAddEntryToListView(entry.path);
            // Paired by number: behind a document or a missing file the description is another row's.
            if (i < lists.lvPages.count())
                lists.lvPages.setSubItem(i, BasketColumn::Description, entry.description);
        }
        lists.pbQueue.setValue(i + 1);
    }
}

} // namespace

std::vector<BasketEntry> readBasketEntries(const QString& path) {
    clsFile file;
    if (!file.OpenForRead(path))
        fail(QFileInfo::exists(path) ? ErrorNumber::PermissionDenied : ErrorNumber::FileNotFound, path);
    const bool plain = path.endsWith(PlainExtension, Qt::CaseInsensitive);
    const bool described = path.endsWith(DescribedExtension, Qt::CaseInsensitive);
    std::vector<BasketEntry> entries;
    while ((plain || described) && !file.fEof()) {
        BasketEntry entry;
        if (plain)
            entry.path = pathOfLine(file.readLine(), path, entries.size() + 1);
        else
            file.read_ImageBasket(entry.path, entry.description);
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool fncSaveImageBasket(int filterIndex, const QString& path, const ListView& lvPages) {
    if (lvPages.isEmpty())
        return false;
    return trap("modSaveOpenImageList.fncSaveImageBasket", [&] { save(filterIndex, path, lvPages); });
}

bool fncOpenImageBasket(const QString& path, Basket& basket, CollectionLists& lists) {
    const bool ended = trap("modSaveOpenImageList.fncOpenImageBasket", [&] {
        basket.empty();
        const std::vector<BasketEntry> entries = readBasketEntries(path);
        if (!entries.empty())
            addEntries(entries, basket, lists);
    });
    lists.pbQueue.hide();
    return ended;
}

} // namespace tarsel::modSaveOpenImageList
