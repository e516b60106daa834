// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/LastBasket.h"

#include "collections/BasketFile.h"

#include <QDir>
#include <QFileInfo>

namespace tarsel::lastBasket {

namespace {

QString fileIn(const QString& programFolder) {
    return QDir(programFolder).filePath(QStringLiteral("last-basket.ibd"));
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

bool reopen(Basket& basket, CollectionLists& lists, const QString& programFolder) {
    return modSaveOpenImageList::fncOpenImageBasket(fileIn(programFolder), basket, lists);
}

} // namespace tarsel::lastBasket
