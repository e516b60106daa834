// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/PrintedRows.h"

#include "base/ErrorTrap.h"
#include "base/FailureOf.h"
#include "collections/Basket.h"
#include "collections/RowLoop.h"
#include "output/PrintJob.h"
#include "output/PrintPages.h"
#include "tasks/modProcessTasks.h"

#include <algorithm>

namespace tarsel {

namespace {

/// The last step of each row: its picture goes to the next place on the pages.
class PrintedRows final : public RowConsumer {
public:
    explicit PrintedRows(const PdfPrint& print) :
        m_print(print), m_job(print.path, sheetOf(print.layout), print.layout) {}

    std::function<bool()> consume(const ListRow& row, ImageBox& box, RowResult& result) override {
        result.target = m_print.path;
        return [this, picture = printPictureOf(box, captionOf(m_print.layout, row))] {
            m_job.add(picture);
            return true;
        };
    }

    void commit() { m_job.finish(); }

private:
    const PdfPrint& m_print;
    PrintJob m_job;
};

bool hasPrinted(const std::vector<RowResult>& results) {
    return std::ranges::any_of(results, [](const RowResult& row) { return row.state == RowState::Written; });
}

bool wasCancelled(const std::vector<RowResult>& results) {
    return std::ranges::any_of(results,
                               [](const RowResult& row) { return row.skipped == SkipReason::Cancelled; });
}

/// The document with their pictures was dropped.
void takeBackWritten(std::vector<RowResult>& results, const std::optional<TrappedError>& failure) {
    for (RowResult& row : results) {
        if (row.state != RowState::Written)
            continue;
        if (failure) {
            row.state = RowState::Failed;
            row.remarks.prepend(failure->description);
        } else {
            row.skip(SkipReason::Cancelled);
        }
    }
}

} // namespace

QString captionOf(const PrintLayout& layout, const ListRow& row) {
    switch (layout.caption) {
    case PrintLayout::Name:
        return row.text;
    case PrintLayout::Description:
        return row.subItems.value(BasketColumn::Description - 1);
    default:
        return {};
    }
}

std::vector<RowResult> PdfPrint::run(ImageBox& box, Progress& progress) const {
    RowRun rows{
        .rows = lvPages,
        .upright = true,
        .tasks = [this] { return modProcessTasks::rowsToReplay(lvPages, lvEditBatch, nullptr, true); },
        .stop = stop,
        .onRow = {},
        .goesOn = true};
    if (rows.tasks().empty())
        rows.drawn = [this, places = pagePlaces(layout, paperOf(sheetOf(layout)))](PixelSize pixels) {
            return pixelsDrawn(layout, places, pixels);
        };
    std::vector<RowResult> results;
    PrintedRows printed(*this);
    RowLoop loop(rows, printed, box, progress, results);
    std::ignore = trap("FrmMain.cmdBatchPrint_Click", [&] { loop.run(); });
    loop.finish();
    std::optional<TrappedError> failure;
    if (hasPrinted(results) && !wasCancelled(results))
        failure = failureOf([&] { printed.commit(); });
    if (failure || wasCancelled(results))
        takeBackWritten(results, failure);
    return results;
}

} // namespace tarsel
