// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LastBasket.h"

#include "base/AcquiredFiles.h"
#include "base/FailureOf.h"
#include "base/FileNames.h"
#include "base/IgnoringErrors.h"
#include "collections/BasketFile.h"
#include "collections/PageFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <functional>
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

/// The name that a damaged file got; empty for any other, and for one that can't be opened or renamed.
QString putDamagedAside(const QString& file) {
    const bool isReadable = QFile(file).open(QIODevice::ReadOnly);
    if (!isReadable || !failureOf([&] { std::ignore = modSaveOpenImageList::readBasketEntries(file); }))
        return {};
    const QString name = nameOfDamaged(file);
    return QFile::rename(file, name) ? name : QString();
}

} // namespace

void keep(const ListView& lvPages, const QString& programFolder) {
    constexpr int describedFilter = 3;
    if (!lvPages.isEmpty())
        modSaveOpenImageList::writeBasketFile(describedFilter, fileIn(programFolder), lvPages);
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
    const bool isOpened = hasKept
                              ? modSaveOpenImageList::fncOpenImageBasket(fileIn(programFolder), basket, lists)
                              : aside.isEmpty();
    if (hasKept && basket.wasStopped())
        return isOpened;
    const QStringList lacking = acquiredWithout([&] { return sourcesOf(lists.lvPages); }, programFolder);
    if (!lacking.isEmpty())
        std::ignore = basket.addListedFiles(lacking);
    return isOpened;
}

} // namespace tarsel::lastBasket
