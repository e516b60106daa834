// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Progress.h"
#include "collections/RowRun.h"

#include <vector>

namespace tarsel {

class RowAhead;

/// The loop over the rows of a list: load, tasks, the consumer's last step; with progress, cancel and a
/// result for each row.
class RowLoop {
public:
    /// `box` holds each picture in its turn. Its settings stay from row to row.
    RowLoop(const RowRun& run, RowConsumer& consumer, ImageBox& box, Progress& progress,
            std::vector<RowResult>& results);
    /// Returns at the end, or when the run was cancelled. Raises the error that ended it; the result of its
    /// row is there, and the bar is hidden.
    void run();
    bool wasCancelled() const { return m_cancelled; }
    /// Adds a result for every row that was not begun.
    void finish();

private:
    void nameNext();
    bool isCancelled();
    void work(RowAhead& ahead);
    void record(RowResult result);
    void recordUndone(int position, SkipReason reason);

    const RowRun& m_run;
    RowConsumer& m_consumer;
    ImageBox& m_box;
    Progress& m_progress;
    std::vector<RowResult>& m_results;
    const int m_first;
    const int m_last;
    int m_next;
    bool m_cancelled = false;
};

} // namespace tarsel
