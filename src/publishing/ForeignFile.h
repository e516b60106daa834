// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "publishing/AlbumOptions.h"

#include <QString>
#include <optional>

namespace tarsel {

/// A file of the user's own that an album of these rows would replace: an index that is not of an album, or,
/// where no album is complete, any other file in the place of one of its files. Where only what has changed
/// is to be written, also one in a complete album, when the record of the last run doesn't name it. A source
/// of a row is no such file: it has rules of its own.
std::optional<QString> foreignFile(const ListView& lvPages, const AlbumOptions& options);

/// Asks the user when there is such a file. False when it must stay.
bool mayReplaceForeignFiles(const ListView& lvPages, const AlbumOptions& options);

} // namespace tarsel
