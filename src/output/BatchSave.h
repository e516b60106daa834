// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"

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
    /// Why a row was skipped or failed. Of a written row: empty, or that its source could be read in part
    /// only, or that its task list ended early and the picture was written as far as it came.
    QString reason;
};
QString rowStateText(RowState state); ///< "written", "skipped", "failed"

/// How a run differs from the plain one of the window.
struct BatchRun {
    int firstRow = 1;    ///< rows outside are not done, but count for numbering
    int lastRow = 0;     ///< 0: to the last
    bool dryRun = false; ///< everything but the writing; what would be written is skipped as "dry run"
    /// "Source folder" of a page means the folder of its document, not that of the extracted page file.
    bool pagesToDocumentFolder = false;
    std::stop_token stop; ///< ends the loading of a row's picture: that row and the rest are cancelled
    std::function<void(const QString& source)> onRowBegin; ///< told of each row before its work
    std::function<void(const RowResult&)> onRow;           ///< told of each row as soon as it is done
};

/// The reasons of skipped rows that scripts may want to tell apart.
namespace SkipReason {
inline const QString Exists = QStringLiteral("exists already");
inline const QString NoPicture = QStringLiteral("no picture that this program knows");
inline const QString DryRun = QStringLiteral("dry run");
inline const QString Cancelled = QStringLiteral("cancelled");
inline const QString NotReached = QStringLiteral("not reached");
} // namespace SkipReason

/// The loop of the batch save over the rows of lvPages: load, tasks, name, import, save. Returns true when it
/// ran to its end or was cancelled, false when it ended in an error, which is trapped as "fncSaveSinglePage".
/// `results` gets one entry for every row of the run: rows behind a cancel or an error are skipped ones.
bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results);

} // namespace tarsel
