// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "collections/RowRun.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumRun.h"

#include <functional>
#include <vector>

namespace tarsel {

/// What an album is made from.
struct AlbumSources {
    const ListView& lvPages;
    ImageBox& ibTemp;
    std::function<std::vector<TaskRow>()> tasks; ///< asked for each row when the options want them
};

/// Writes an album: images of links and backgrounds, a page and two pictures for each row, and index.htm at
/// the end. Returns true when it ran to its end or was cancelled, false when it ended in an error, which is
/// trapped as "fncGenerateAlbum"; in these two cases the pages written stay and there is no new index. A row
/// whose picture fails gets its page all the same. `results` gets one entry for every row.
bool fncGenerateAlbum(const AlbumSources& sources, const AlbumOptions& options, Progress& progress,
                      const AlbumRun& run, std::vector<RowResult>& results);

} // namespace tarsel
