#pragma once

#include "base/ListView.h"
#include "base/Progress.h"
#include "configuration/ConfigRecord.h"
#include "imaging/ImageBox.h"

#include <functional>
#include <vector>

namespace tarsel {

enum class RowState { Written, Skipped, Failed };

/// What became of one row of a batch.
struct RowResult {
    int row = 0; ///< from 1
    QString source;
    QString target; ///< empty while no name was built
    RowState state = RowState::Failed;
    QString reason; ///< empty for a written row
};
QString rowStateText(RowState state); ///< "written", "skipped", "failed"

/// How a run differs from the plain one of the window.
struct BatchRun {
    int firstRow = 1;    ///< rows outside are not done, but count for numbering
    int lastRow = 0;     ///< 0: to the last
    bool dryRun = false; ///< everything but the writing
    std::function<void(const RowResult&)> onRow;
};

/// The loop of the batch save over the rows of lvPages: load, tasks, name, import, save. Returns true when it
/// ran to its end or was cancelled, false when it ended in an error, which is trapped as "fncSaveSinglePage".
bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results);

} // namespace tarsel
