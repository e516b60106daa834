// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/BatchSave.h"

#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/EventLoop.h"
#include "base/Locale.h"
#include "collections/Basket.h"
#include "collections/clsFileInfo.h"
#include "imaging/Upright.h"
#include "metadata/modMetadata.h"
#include "output/LoadSource.h"
#include "output/Naming.h"
#include "output/OutputName.h"
#include "tasks/modProcessTasks.h"

#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

/// What all rows of one run share.
struct Batch {
    const ListView& lvPages;
    const ListView& lvEditBatch;
    ImageBox& box;
    const BatchSave settings; ///< as they were at the start: the loop lets other handlers run
    const BatchRun& run;
    SourceGuard& sources;
};

/// The work on one row, in steps that are called in their order.
class RowWork {
public:
    RowWork(const Batch& batch, int position);

    /// All steps. The result says what became of the row, also when an error is raised.
    void perform();
    const RowResult& result() const { return m_result; }

private:
    bool load();
    void runTasks();
    void nameTarget();
    bool isKept() const;
    void importMetadata();
    void setSaveOptions();
    void save();
    void skip(const QString& reason);
    QString tokenText(const QString& token);
    void remark(const QString& text); ///< adds to the reason of a row that goes on
    QString folderOfSource() const;

    const Batch& m_batch;
    ImageBox& m_box;
    const BatchSave& m_settings;
    const ListRow m_row; ///< a copy: the list may change while tasks let other handlers run
    const int m_position;
    OutputName m_target;
    RowResult m_result;
};

/// The file that the user knows the row by: of an extracted page that is its document.
QString shownSource(const ListRow& row) {
    const QString source = row.subItems.value(BasketColumn::SourcePath - 1);
    return source.isEmpty() ? row.tag : source;
}

bool isImportable(quint8 wanted, const QString& path) {
    return wanted == 1 && !path.trimmed().isEmpty() && clsFileInfo::CheckIfFileExists(path);
}

RowWork::RowWork(const Batch& batch, int position) :
    m_batch(batch), m_box(batch.box), m_settings(batch.settings), m_row(batch.lvPages.row(position - 1)),
    m_position(position), m_result{position, shownSource(m_row), {}, RowState::Failed, {}, false} {}

void RowWork::perform() {
    try {
        if (!load())
            return skip(noPictureReason(m_row.tag));
        runTasks();
        nameTarget();
        if (isKept())
            return skip(SkipReason::Exists);
        importMetadata();
        setSaveOptions();
        save();
    } catch (const TrappedError& error) {
        if (error.number == ErrorNumber::Interrupted)
            return skip(SkipReason::Cancelled);
        m_result.state = RowState::Failed;
        remark(error.description);
        throw;
    } catch (const std::bad_alloc&) {
        m_result.state = RowState::Failed;
        remark(errorText(ErrorNumber::OutOfMemory));
        throw;
    }
}

/// False when the source holds no picture.
bool RowWork::load() {
    const QString readable = m_batch.sources.readablePath(m_row.tag);
    if (!loadSource(m_box, readable, m_batch.run.stop))
        return false;
    prepareForTasks(m_box, readable, m_settings.UprightByExif == 1);
    if (!m_box.LoadDamage().isEmpty())
        remark(QStringLiteral("the source is damaged: ") + m_box.LoadDamage());
    m_box.Tag = QStringLiteral("%1x%2").arg(m_box.Width()).arg(m_box.Height());
    return true;
}

/// A task that fails ends its list and reports itself; the picture goes on as far as it came.
void RowWork::runTasks() {
    if (m_settings.ProcessEditingList != 1)
        return;
    const auto failure =
        modProcessTasks::subProcessPages(m_batch.lvPages, m_batch.lvEditBatch, m_box, nullptr, true);
    if (failure)
        remark(QStringLiteral("the task list ended early: ") + failure->ErrSystem);
}

QString RowWork::folderOfSource() const {
    return modFileSystem::GetFolderPart(m_batch.run.pagesToDocumentFolder ? m_result.source : m_row.tag);
}

void RowWork::nameTarget() {
    m_target = outputName(m_settings, {m_position, m_row.text, folderOfSource()},
                          [&](const QString& token) { return tokenText(token); });
    m_result.target = m_target.path();
    if (const QString fault = nameFault(m_target); !fault.isEmpty())
        fail(ErrorNumber::PathNotFound, fault);
}

/// A part of the name that can't be found out is left out.
QString RowWork::tokenText(const QString& token) {
    QString fault;
    QString text = fncRetrieveNamingString(m_box, token, m_batch.sources.readablePath(m_row.tag),
                                           outputExtension(), &fault);
    if (!fault.isEmpty())
        remark(QStringLiteral("the name lacks %1: %2").arg(token, fault));
    return text;
}

bool RowWork::isKept() const {
    return m_settings.Overwrite != 1 && QFileInfo::exists(m_result.target);
}

void RowWork::importMetadata() {
    if (isImportable(m_settings.ImportIPTC, m_settings.ImportIPTCFile))
        m_box.IptcLoadFromFile(m_settings.ImportIPTCFile);
    if (isImportable(m_settings.ImportEXIF, m_settings.ImportEXIFFile))
        modMetadata::ApplyXiffFile(m_settings.ImportEXIFFile, m_box, service<Locale>().dateForms());
    m_box.ExifSet(QStringLiteral("Software"), modMetadata::ProductTitle);
}

void RowWork::setSaveOptions() {
    m_box.JpegQuality = m_settings.JpegQuality;
    m_box.JpegEncoding = m_settings.JpegProgressive == 1;
    m_box.ColorFormat = m_settings.JpegDepth != 0 ? 2 : 0;
}

void RowWork::save() {
    const SourceGuard::Verdict verdict = m_batch.sources.verdictOn(m_position, m_result.target);
    if (!verdict.refusal.isEmpty())
        return skip(verdict.refusal);
    if (!verdict.remark.isEmpty())
        remark(verdict.remark);
    if (!m_batch.run.dryRun) {
        m_batch.sources.keepReadable(m_position, m_result.target);
        m_box.SaveToFile(m_result.target);
    }
    m_batch.sources.noteWritten(m_position, m_result.target);
    m_result.isDry = m_batch.run.dryRun;
    m_result.state = RowState::Written;
    if (m_result.isDry)
        skip(SkipReason::DryRun);
}

void RowWork::skip(const QString& reason) {
    m_result.state = RowState::Skipped;
    m_result.reason = m_result.reason.isEmpty() ? reason : reason + QStringLiteral("; ") + m_result.reason;
}

void addRemark(RowResult& result, const QString& text) {
    result.reason += result.reason.isEmpty() ? text : QStringLiteral("; ") + text;
}

void RowWork::remark(const QString& text) {
    addRemark(m_result, text);
}

struct HiddenAtEnd {
    Progress& progress;
    ~HiddenAtEnd() { progress.hide(); }
};

/// The loop over the rows, and the results of all of them.
class BatchLoop {
public:
    BatchLoop(const Batch& batch, Progress& progress, std::vector<RowResult>& results);
    void run();
    /// Adds a result for every row that was not begun.
    void finish();

private:
    bool isCancelled();
    void work(int position);
    void record(RowResult result);

    const Batch& m_batch;
    Progress& m_progress;
    std::vector<RowResult>& m_results;
    const int m_first;
    const int m_last;
    int m_next;
    bool m_cancelled = false;
};

BatchLoop::BatchLoop(const Batch& batch, Progress& progress, std::vector<RowResult>& results) :
    m_batch(batch), m_progress(progress), m_results(results), m_first(std::max(batch.run.firstRow, 1)),
    m_last(batch.run.lastRow > 0 ? std::min(batch.run.lastRow, batch.lvPages.count())
                                 : batch.lvPages.count()),
    m_next(m_first) {}

void BatchLoop::run() {
    if (m_first > m_last)
        return;
    m_progress.start(m_last - m_first + 1);
    while (m_next <= m_last && !isCancelled()) {
        work(m_next++);
        m_progress.setValue(m_next - m_first);
    }
}

bool BatchLoop::isCancelled() {
    service<EventLoop>().yield();
    m_cancelled = CancelRequested.exchange(false) || m_batch.run.stop.stop_requested();
    return m_cancelled;
}

/// Records the row's result in any case, then lets an error go on, with the row's source in it.
void BatchLoop::work(int position) {
    RowWork row(m_batch, position);
    const ErrorSubject subject(row.result().source);
    try {
        row.perform();
    } catch (TrappedError& error) {
        error.description = namingSubject(error.description);
        record(row.result());
        throw;
    } catch (...) {
        record(row.result());
        throw;
    }
    record(row.result());
}

void BatchLoop::finish() {
    const QString reason = m_cancelled ? SkipReason::Cancelled : SkipReason::NotReached;
    for (; m_next <= std::min(m_last, m_batch.lvPages.count()); ++m_next)
        record({.row = m_next,
                .source = shownSource(m_batch.lvPages.row(m_next - 1)),
                .target = {},
                .state = RowState::Skipped,
                .reason = reason,
                .isDry = false});
}

void BatchLoop::record(RowResult result) {
    if (const QString kept = m_batch.sources.noteDone(result.row); !kept.isEmpty())
        addRemark(result, kept);
    m_results.push_back(result);
    if (m_batch.run.onRow)
        m_batch.run.onRow(result);
}

} // namespace

QString rowStateText(RowState state) {
    switch (state) {
    case RowState::Written:
        return QStringLiteral("written");
    case RowState::Skipped:
        return QStringLiteral("skipped");
    case RowState::Failed:
        return QStringLiteral("failed");
    }
    return {};
}

bool fncSaveSinglePage(const ListView& lvPages, const ListView& lvEditBatch, ImageBox& ibTemp,
                       Progress& progress, const BatchSave& settings, const BatchRun& run,
                       std::vector<RowResult>& results) {
    SourceGuard sources(lvPages, run.sourceReplacing);
    const Batch batch{lvPages, lvEditBatch, ibTemp, settings, run, sources};
    BatchLoop loop(batch, progress, results);
    const auto failure = trap("fncSaveSinglePage", [&] {
        const HiddenAtEnd bar{progress}; // out of sight before an error is reported
        loop.run();
    });
    loop.finish();
    return !failure;
}

} // namespace tarsel
