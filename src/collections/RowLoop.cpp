// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/RowLoop.h"

#include "base/ErrorSubject.h"
#include "base/EventLoop.h"
#include "collections/RowAhead.h"
#include "collections/RowWork.h"

#include <algorithm>

namespace tarsel {

namespace {

struct HiddenAtEnd {
    Progress& progress;
    ~HiddenAtEnd() { progress.hide(); }
};

} // namespace

RowLoop::RowLoop(const RowRun& run, RowConsumer& consumer, ImageBox& box, Progress& progress,
                 std::vector<RowResult>& results) :
    m_run(run),
    m_consumer(consumer), m_box(box), m_progress(progress), m_results(results),
    m_first(std::max(run.firstRow, 1)), m_last(run.lastThere()), m_next(m_first) {}

void RowLoop::run() {
    const HiddenAtEnd bar{m_progress};
    if (m_first > m_last)
        return;
    m_progress.start(m_last - m_first + 1);
    RowAhead ahead({.readAhead = m_run.readAhead,
                    .upright = m_run.upright,
                    .pageNumber = m_box.PageNumber,
                    .stop = m_run.stop,
                    .drawn = m_run.drawn});
    for (nameNext(); m_next <= m_last && !isCancelled(); nameNext()) {
        work(ahead);
        m_progress.setValue(m_next - m_first);
    }
}

void RowLoop::nameNext() {
    if (m_next <= m_run.lastThere())
        m_progress.setSubject(m_run.rows.row(m_next - 1).text);
}

bool RowLoop::isCancelled() {
    service<EventLoop>().yield();
    m_cancelled = CancelRequested.exchange(false) || m_run.stop.stop_requested();
    return m_cancelled;
}

/// Records the row's result in any case, then lets an error go on, with the row's source in it.
void RowLoop::work(RowAhead& ahead) {
    const int position = m_next++;
    if (position > m_run.rows.count())
        return recordUndone(position, SkipReason::Removed);
    RowWork row(m_run, m_consumer, m_box, ahead, position);
    for (int later = position; later <= std::min(position + RowAhead::rowsAhead, m_run.lastThere()); ++later)
        if (const ListRow source = m_run.rows.row(later - 1); m_consumer.needsPicture(source))
            ahead.load(later, m_consumer.readablePath(source.tag));
    const ErrorSubject subject(row.result().source);
    try {
        row.perform();
    } catch (TrappedError& error) {
        error.description = namingSubject(error.description);
        record(row.result());
        if (!m_run.goesOn)
            throw;
        return;
    } catch (...) {
        record(row.result());
        throw;
    }
    record(row.result());
}

void RowLoop::finish() {
    for (; m_next <= m_last; ++m_next)
        recordUndone(m_next, m_cancelled ? SkipReason::Cancelled : SkipReason::NotReached);
}

/// The list may have shrunk since the start.
void RowLoop::recordUndone(int position, SkipReason reason) {
    RowResult result;
    result.row = position;
    if (position <= m_run.rows.count())
        result.source = shownSource(m_run.rows.row(position - 1));
    result.skip(reason);
    record(std::move(result));
}

void RowLoop::record(RowResult result) {
    m_consumer.noteDone(result);
    m_results.push_back(result);
    if (m_run.onRow)
        m_run.onRow(result);
}

} // namespace tarsel
