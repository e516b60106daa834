// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"
#include "output/BatchSave.h"

#include <QWidget>
#include <vector>

namespace tarsel {

/// What the window lends to the batch save.
struct SaveAsLists {
    const ListView& lvPages;
    const ListView& lvEditBatch;
    ImageBox& ibTemp;
    settings::BatchSave& settings;
};

/// The complete operation: asks by frmSaveSinglePage, runs the rows with frmStatus. Returns the results of
/// the rows that were done; none when the basket is empty or the user left. Trapped as
/// "FrmMain.subSaveAsSinglePage".
std::vector<RowResult> subSaveAsSinglePage(const SaveAsLists& lists, QWidget* owner);

} // namespace tarsel
