// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Basket.h"

/// The basket that a session ended with, in the program folder: a basket file with descriptions, and beside
/// it one with the titles of the rows in their place. Sessions begin with an empty basket; from here the user
/// gets the last one back, and with it the acquired pictures that it doesn't name, such as those of a session
/// that was killed.
namespace tarsel::lastBasket {

/// Whether a file of the program folder with that name is one of the two.
bool isOneOfItsFiles(const QString& name);

/// An empty basket leaves what an earlier session kept. The `awaited` entries of the basket are kept with the
/// rows; a document has a line for each page up to the last one with such a text. A path that the files can't
/// hold is left out.
void keep(const ListView& lvPages, const std::vector<AwaitedEntry>& awaited, const QString& programFolder);

bool isKept(const QString& programFolder);

/// Acquired pictures in the folder Temp that no row of the kept basket is. On any thread: it reads that
/// basket.
QStringList acquiredBeside(const QString& programFolder);

/// Replaces the basket; false when its file can't be read. Each row gets the description and the title that
/// it had, or a title without its file's extension, unless the user has typed some by then. What is missing
/// stays with the basket as awaited. Page files of earlier sessions go where there are new ones. Then adds
/// the acquired pictures that it lacks. A damaged file, which the end of the session would write over, gets
/// the name `damaged`.
bool reopen(Basket& basket, CollectionLists& lists, const QString& programFolder, QString* damaged = nullptr);

} // namespace tarsel::lastBasket
