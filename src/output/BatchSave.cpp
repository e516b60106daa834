// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/BatchSave.h"

#include "base/ErrorTrap.h"
#include "output/SavedRows.h"
#include "tasks/modProcessTasks.h"

namespace tarsel {

bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const settings::BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results) {
    const bool runsTasks = settings.ProcessEditingList == 1;
    SavedRows saved(lvPages, settings, run, runsTasks && lvEditBatch.count() > 0);
    const auto tasks = [&lvPages, &lvEditBatch, runsTasks] {
        return runsTasks ? modProcessTasks::rowsToReplay(lvPages, lvEditBatch, nullptr, true)
                         : std::vector<TaskRow>();
    };
    const RowRun rows{.rows = lvPages,
                      .firstRow = run.firstRow,
                      .lastRow = run.lastRow,
                      .upright = settings.UprightByExif == 1,
                      .tasks = tasks,
                      .stop = run.stop,
                      .onRow = run.onRow,
                      .readAhead = run.readAhead};
    RowLoop loop(rows, saved, ibTemp, progress, results);
    const auto failure = trap("fncSaveSinglePage", [&] { loop.run(); });
    loop.finish();
    return !failure;
}

} // namespace tarsel
