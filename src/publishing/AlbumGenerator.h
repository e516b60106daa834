// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "collections/RowResult.h"
#include "publishing/AlbumOptions.h"
#include "publishing/AlbumRun.h"
#include "publishing/AlbumSources.h"

#include <vector>

namespace tarsel {

/// Writes an album: what its template needs, pictures and pages of the rows, and index.htm at the end.
/// Returns true when it ran to its end or was cancelled, false when it ended in an error, which is trapped as
/// "fncGenerateAlbum"; in these two cases the pages written stay and there is no new index. A row whose
/// picture fails gets its page all the same. `results` gets one entry for every row, and one for each file of
/// an earlier album that the run found unneeded.
bool fncGenerateAlbum(const AlbumSources& sources, const AlbumOptions& options, Progress& progress,
                      const AlbumRun& run, std::vector<RowResult>& results);

} // namespace tarsel
