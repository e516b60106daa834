// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"
#include "output/SourceGuard.h"

#include <functional>
#include <stop_token>
#include <vector>

namespace tarsel {

enum class RowState { Written, Skipped, Failed };

/// What became of one row of a batch.
struct RowResult {
    int row = 0; ///< from 1
    QString source;
    QString target; ///< empty while no name was built
    RowState state = RowState::Failed;
    /// Why a row was skipped or failed, and remarks: that the source could be read in part only, that the
    /// task list ended early and the picture is written as far as it came, that a part of the name is
    /// unknown, that the file replaces another row's, where the row's replaced original was kept. A written
    /// row without a remark has none.
    QString reason;
    bool isDry = false; ///< skipped for no other reason than the dry run
};
QString rowStateText(RowState state); ///< "written", "skipped", "failed"

/// How a run differs from the plain one of the window.
struct BatchRun {
    int firstRow = 1;    ///< rows outside are not done, but count for numbering
    int lastRow = 0;     ///< 0: to the last
    bool dryRun = false; ///< everything but the writing; what would be written is skipped as "dry run"
    /// "Source folder" of a page means the folder of its document, not that of the extracted page file.
    bool pagesToDocumentFolder = false;
    SourceReplacing sourceReplacing = SourceReplacing::KeptReadable;
    std::stop_token stop; ///< ends the loading of a row's picture: that row and the rest are cancelled
    std::function<void(const RowResult&)> onRow; ///< called for each row as soon as it is done
};

/// The reasons of skipped rows that scripts may want to tell apart.
namespace SkipReason {
inline const QString Exists = QStringLiteral("exists already");
inline const QString DryRun = QStringLiteral("dry run");
inline const QString Cancelled = QStringLiteral("cancelled");
inline const QString NotReached = QStringLiteral("not reached");
} // namespace SkipReason

/// The loop of the batch save over the rows of lvPages: load, tasks, name, import, save. Returns true when it
/// ran to its end or was cancelled, false when it ended in an error, which is trapped as "fncSaveSinglePage".
/// `results` gets one entry for every row of the run: rows after a cancel or an error are skipped ones.
bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const settings::BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results);

} // namespace tarsel
