// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "base/StatusLine.h"
#include "collections/CollectionLists.h"
#include "imaging/ImageBox.h"
#include "tasks/TaskList.h"

namespace tarsel {

/// The lists and boxes that window, command line and tests work on, alive for the complete run. No widget
/// among them.
struct Workspace {
    Workspace();

    ListView lvFolder;
    ListView lvPages;
    ListView lvExif;
    ListView lvIPTC;
    ImageList ilFolder;
    ImageList ilPages;
    TaskList tasks;
    ImageBox ibMain; ///< the preview
    ImageBox ibTemp; ///< never shown: the batch works in it
    StatusLine sbMain;

    CollectionLists lists(Progress& pbQueue) {
        return {lvFolder, ilFolder, lvPages, ilPages, pbQueue, sbMain};
    }
};

} // namespace tarsel
