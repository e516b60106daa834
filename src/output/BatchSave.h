// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowLoop.h"
#include "configuration/ConfigRecord.h"
#include "output/SourceGuard.h"

#include <functional>
#include <stop_token>
#include <vector>

namespace tarsel {

/// How a run differs from the plain one of the window.
struct BatchRun {
    int firstRow = 1;    ///< rows outside are not done, but count for numbering
    int lastRow = 0;     ///< 0: to the last
    bool dryRun = false; ///< everything but the writing; what would be written is skipped as "dry run"
    /// "Source folder" of a page means the folder of its document, not that of the extracted page file.
    bool pagesToDocumentFolder = false;
    SourceReplacing sourceReplacing = SourceReplacing::KeptReadable;
    QStringList unreadSources; ///< files that the user named but that became no rows; they are not replaced
    std::stop_token stop;      ///< ends the loading of a row's picture: that row and the rest are cancelled
    std::function<void(const RowResult&)> onRow; ///< called for each row as soon as it is done
    bool readAhead = true;                       ///< as of RowRun
};

/// The loop of the batch save over the rows of lvPages: load, tasks, name, import, save. Returns true when it
/// ran to its end or was cancelled, false when it ended in an error, which is trapped as "fncSaveSinglePage".
/// `results` gets one entry for every row of the run: rows after a cancel or an error are skipped ones.
bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const settings::BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results);

} // namespace tarsel
