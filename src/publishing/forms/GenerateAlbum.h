// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "publishing/AlbumGenerator.h"

#include <QWidget>

namespace tarsel {

/// Generates an album with frmStatus on show, whose Cancel ends it after the row in work. Returns the results
/// of all rows; none when the user wants to keep files that the album would replace.
std::vector<RowResult> generateAlbum(const AlbumSources& sources, const AlbumOptions& options,
                                     const AlbumRun& run, QWidget* owner);

} // namespace tarsel
