// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/RowAhead.h"
#include "collections/RowRun.h"

namespace tarsel {

/// The work on one row, in steps that are called in their order.
class RowWork {
public:
    /// Error 9 when the row has gone.
    RowWork(const RowRun& run, RowConsumer& consumer, ImageBox& box, RowAhead& ahead, int position);

    /// All steps. The result says what became of the row, also when an error is raised.
    void perform();
    const RowResult& result() const { return m_result; }

private:
    void keepUnread();
    bool load();
    void doWithoutPicture();
    PreparedRow prepare();
    void reportTasks();
    void consume();
    void beginNext();
    bool isReadByTasks(const QString& target) const;

    const RowRun& m_run;
    RowConsumer& m_consumer;
    ImageBox& m_box;
    RowAhead& m_ahead;
    const ListRow m_row; ///< a copy: the list may change while events run
    const int m_position;
    std::vector<TaskRow> m_tasks;
    std::optional<TrappedError> m_loadFailure;
    std::optional<TrappedError> m_taskFailure;
    RowResult m_result;
};

} // namespace tarsel
