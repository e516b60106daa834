// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"

/// The basket that a session ended with, as a basket file with descriptions in the program folder. Sessions
/// begin with an empty basket; from here the user gets the last one back, and with it the acquired pictures
/// that it doesn't name, such as those of a session that was killed.
namespace tarsel::lastBasket {

inline constexpr const char* fileName = "last-basket.ibd"; ///< in the program folder

/// An empty basket leaves what an earlier session kept. The `awaited` entries of the basket are kept with the
/// rows; a document has a line for each of its described pages. A path that the file can't hold is left out.
void keep(const ListView& lvPages, const std::vector<BasketEntry>& awaited, const QString& programFolder);

bool isKept(const QString& programFolder);

/// Acquired pictures in the folder Temp that no row of the kept basket is. On any thread: it reads that
/// basket.
QStringList acquiredBeside(const QString& programFolder);

/// Replaces the basket; false when the file can't be read. Each row gets the description that it had, and
/// what is missing stays with the basket as awaited. Then adds the acquired pictures that it lacks. A damaged
/// file, which the end of the session would write over, gets the name `damaged`; false for that too.
bool reopen(Basket& basket, CollectionLists& lists, const QString& programFolder, QString* damaged = nullptr);

} // namespace tarsel::lastBasket
