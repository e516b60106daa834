// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/RowWork.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "base/FileIdentity.h"
#include "collections/LoadSource.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

namespace tarsel {

RowWork::RowWork(const RowRun& run, RowConsumer& consumer, ImageBox& box, RowAhead& ahead, int position) :
    m_run(run), m_consumer(consumer), m_box(box), m_ahead(ahead), m_row(run.rows.row(position - 1)),
    m_position(position) {
    m_result.row = position;
    m_result.source = shownSource(m_row);
}

void RowWork::perform() {
    try {
        if (!m_consumer.needsPicture(m_row))
            return keepUnread();
        if (!load())
            return doWithoutPicture();
        reportTasks();
        consume();
    } catch (const TrappedError& error) {
        if (error.number == ErrorNumber::Interrupted)
            return m_result.skip(SkipReason::Cancelled);
        m_result.state = RowState::Failed;
        m_result.remark(error.description);
        throw;
    } catch (const std::bad_alloc&) {
        m_result.state = RowState::Failed;
        m_result.remark(errorText(ErrorNumber::OutOfMemory));
        throw;
    }
}

void RowWork::keepUnread() {
    if (const auto work = m_consumer.consumeUnread(m_row, m_result))
        m_ahead.finish(work);
    m_consumer.noteWritten(m_result);
    m_result.skip(SkipReason::Unchanged);
}

/// The tasks have run as well then. False when the source holds no picture, or failed to load.
bool RowWork::load() {
    m_tasks = m_run.tasks ? m_run.tasks() : std::vector<TaskRow>();
    m_box.Clear();
    PreparedRow prepared = prepare();
    m_loadFailure = std::move(prepared.loadFailure);
    if (m_loadFailure || !prepared.isPicture)
        return false;
    m_box = std::move(prepared.box);
    m_taskFailure = std::move(prepared.taskFailure);
    if (!m_box.LoadDamage().isEmpty())
        m_result.remark(
            QCoreApplication::translate("RowLoop", "the source is damaged: %1").arg(m_box.LoadDamage()));
    return true;
}

void RowWork::doWithoutPicture() {
    const bool isStopped = m_loadFailure && m_loadFailure->number == ErrorNumber::Interrupted;
    const auto work = isStopped ? nullptr : m_consumer.consumeWithoutPicture(m_row, m_result, m_loadFailure);
    if (!work && m_loadFailure)
        throw *m_loadFailure;
    if (m_loadFailure)
        m_result.remark(namingSubject(m_loadFailure->description));
    else
        m_result.skip(SkipReason::NoPicture, noPictureReason(m_row.tag));
    if (work)
        m_ahead.finish(work);
}

/// The pointer of a busy program stays on after a failed task: whoever sets it next puts it right.
PreparedRow RowWork::prepare() {
    const auto onLoaded = [this] {
        if (!m_tasks.empty())
            service<EventLoop>().setBusyPointer(true);
    };
    PreparedRow prepared =
        m_ahead.take(m_position, m_consumer.readablePath(m_row.tag), m_box, m_tasks, onLoaded);
    if (!m_tasks.empty() && !prepared.taskFailure)
        service<EventLoop>().setBusyPointer(false);
    return prepared;
}

/// A task that fails ends its list and is reported; the picture goes on as far as it came.
void RowWork::reportTasks() {
    if (!m_taskFailure)
        return;
    const auto report = trap("subProcessPages", [&] { throw *m_taskFailure; });
    if (report)
        m_result.remark(
            QCoreApplication::translate("RowLoop", "the task list ended early: %1").arg(report->ErrSystem));
}

void RowWork::consume() {
    const std::function<bool()> work = m_consumer.consume(m_row, m_box, m_result);
    if (!work)
        return;
    beginNext();
    bool written = false;
    m_ahead.finish([&] { written = work(); });
    if (!written && m_result.skipped == SkipReason::None)
        m_result.skip(SkipReason::Exists);
    if (!written)
        return;
    m_consumer.noteWritten(m_result);
    m_result.state = RowState::Written;
}

/// Unless its tasks would read the file that is being written.
void RowWork::beginNext() {
    if (m_position >= m_run.lastThere() || isReadByTasks(m_result.target))
        return;
    const ListRow next = m_run.rows.row(m_position);
    if (m_consumer.needsPicture(next))
        m_ahead.begin(m_position + 1, m_consumer.readablePath(next.tag), m_box, m_tasks);
}

/// A column can name a file, such as the picture of a watermark.
bool RowWork::isReadByTasks(const QString& target) const {
    const FileIdentity written = FileIdentity::of(target);
    return std::ranges::any_of(m_tasks, [&](const TaskRow& task) {
        return std::ranges::any_of(task.columns, [&](const QString& column) {
            return !column.isEmpty() && FileIdentity::of(column) == written;
        });
    });
}

} // namespace tarsel
