// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowLoop.h"
#include "configuration/ConfigRecord.h"
#include "output/BatchRun.h"

#include <vector>

namespace tarsel {

/// The loop of the batch save over the rows of lvPages: load, tasks, name, import, save. Returns true when it
/// ran to its end or was cancelled, false when it ended in an error, which is trapped as "fncSaveSinglePage".
/// `results` gets one entry for every row of the run: rows after a cancel or an error are skipped ones.
bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const settings::BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results);

} // namespace tarsel
