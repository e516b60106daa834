// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"

#include <vector>

namespace tarsel::modSaveOpenImageList {

/// One line of a basket file.
struct BasketEntry {
    QString path;
    QString description; ///< empty in a .ibf file
};

/// The lines of a .ibf or .ibd file; none for another extension. Errors 53, 70, 5 for a line without a path,
/// 62 for a file that ends within a record.
std::vector<BasketEntry> readBasketEntries(const QString& path);

/// Writes the distinct source paths of the basket: with filter index 1 or 2 as .ibf (the extension is
/// appended when missing), with 3 as .ibd with descriptions paired by row number. True when a file was
/// written; false for an empty basket or after an error, which is trapped as
/// "modSaveOpenImageList.fncSaveImageBasket".
bool fncSaveImageBasket(int filterIndex, const QString& path, const ListView& lvPages);

/// Replaces the basket by the files that a .ibf or .ibd names; missing ones are skipped. False after an
/// error, which is trapped as "modSaveOpenImageList.fncOpenImageBasket".
bool fncOpenImageBasket(const QString& path, Basket& basket, CollectionLists& lists);

} // namespace tarsel::modSaveOpenImageList
