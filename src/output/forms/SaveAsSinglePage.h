// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"
#include "output/BatchSave.h"

#include <QWidget>
#include <functional>
#include <vector>

namespace tarsel {

/// What the batch save works on.
struct SaveAsLists {
    const ListView& lvPages;
    const ListView& lvEditBatch;
    ImageBox& ibTemp;
    settings::BatchSave& settings;
    std::function<void(bool running)> runningChanged; ///< with true when the dialog was left by Save
};

/// The complete operation: asks by frmSaveSinglePage, runs the rows with frmStatus. Returns the results of
/// the rows that were done; none when the basket is empty or the user left. Trapped as
/// "FrmMain.subSaveAsSinglePage".
std::vector<RowResult> subSaveAsSinglePage(const SaveAsLists& lists, QWidget* owner);

} // namespace tarsel
