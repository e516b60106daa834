// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "collections/Basket.h"
#include "collections/FolderView.h"
#include "imaging/ImageBox.h"
#include "tasks/TaskList.h"

namespace tarsel {

/// The lists and boxes that the whole window shares, alive for the whole run. No widget among them.
struct Workspace {
    Workspace();

    ListView lvFolder{folderHeaders()};
    ListView lvPages{basketHeaders()};
    ListView lvExif;
    ListView lvIPTC;
    ImageList ilFolder;
    ImageList ilPages;
    TaskList tasks;
    ImageBox ibMain; ///< the preview
    ImageBox ibTemp; ///< never shown: the batch works in it
    StatusLine sbMain;
};

} // namespace tarsel
