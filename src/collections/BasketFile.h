// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"

#include <vector>

namespace tarsel::modSaveOpenImageList {

/// By its extension, .ibf or .ibd.
bool isBasketFile(const QString& path);

/// The lines of a .ibf or .ibd file; none for another extension. Error 5 for a line without a path, 62 for a
/// file that ends within a record, or why the file could not be opened.
std::vector<BasketEntry> readBasketEntries(const QString& path);

/// The file that a basket is saved to: filter index 1 or 2 appends .ibf when it is missing, 3 appends
/// nothing.
QString basketFilePath(int filterIndex, const QString& path);

/// Writes the distinct source paths of the basket to basketFilePath: with filter index 1 or 2 as .ibf, with 3
/// as .ibd with descriptions paired by row number. Raises why the file could not be written.
void writeBasketFile(int filterIndex, const QString& path, const ListView& lvPages);

/// writeBasketFile for the window. True when a file was written; false for an empty basket, for a file that
/// can't be opened, whose reason goes to `openFault`, or after an error, which is trapped as
/// "modSaveOpenImageList.fncSaveImageBasket".
bool fncSaveImageBasket(int filterIndex, const QString& path, const ListView& lvPages,
                        QString* openFault = nullptr);

/// Replaces the basket by the files that a .ibf or .ibd names; missing ones are skipped. False for a file
/// that can't be opened, whose reason goes to `openFault`, or after an error, which is trapped as
/// "modSaveOpenImageList.fncOpenImageBasket".
bool fncOpenImageBasket(const QString& path, Basket& basket, CollectionLists& lists,
                        QString* openFault = nullptr);

} // namespace tarsel::modSaveOpenImageList
