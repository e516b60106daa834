// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/RowRun.h"
#include "imaging/ImageBox.h"

#include <functional>
#include <vector>

namespace tarsel {

/// What an album is made from.
struct AlbumSources {
    const ListView& lvPages;
    ImageBox& ibTemp;
    std::function<std::vector<TaskRow>()> tasks; ///< asked for each row when the options want them
};

} // namespace tarsel
