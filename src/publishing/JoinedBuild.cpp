// SPDX-License-Identifier: GPL-3.0-or-later
#include "publishing/JoinedBuild.h"

#include "base/ErrorTrap.h"
#include "collections/RowLoop.h"
#include "output/SourceGuard.h"
#include "publishing/JoinedRows.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <algorithm>

namespace tarsel {

namespace {

void show(const JoinedRun& run, const QString& stage) {
    if (run.status)
        run.status(stage);
}

/// Their file was dropped.
void takeBackWritten(std::vector<RowResult>& results, const QString& reason) {
    for (RowResult& row : results) {
        if (row.state != RowState::Written)
            continue;
        row.state = RowState::Failed;
        row.remarks.prepend(reason);
    }
}

/// Nobody gives a whole file away for a part of one.
void keepOlder(std::vector<RowResult>& results) {
    for (RowResult& row : results)
        if (row.state == RowState::Written)
            row.skip(SkipReason::Cancelled,
                     QCoreApplication::translate("JoinedBuild", "the older file stays"));
}

/// The one row was cancelled, has failed, or holds no picture.
void requirePicture(const std::vector<RowResult>& results) {
    const auto withoutPicture = std::ranges::find(results, SkipReason::NoPicture, &RowResult::skipped);
    if (withoutPicture != results.end())
        fail(ErrorNumber::InvalidPicture, withoutPicture->source);
}

} // namespace

bool buildJoined(const JoinedBuild& build, const JoinedSources& sources, Progress& progress,
                 const JoinedRun& run, std::vector<RowResult>& results) {
    const RowRun rowRun{
        .rows = sources.rows, .upright = run.upright, .tasks = sources.tasks, .stop = run.stop, .onRow = {}};
    std::optional<JoinedFile> file;
    JoinedRows rows(build, run);
    RowLoop loop(rowRun, rows, sources.ibTemp, progress, results);
    const auto report = trap(build.routine, [&] {
        show(run, QCoreApplication::translate("JoinedBuild", "Loading Template..."));
        requireNoSource(sources.rows, build.path, run.unreadSources);
        file.emplace(build.path, playerFile(build.player, build.system));
        rows.begin(*file);
        loop.run();
        show(run, QCoreApplication::translate("JoinedBuild", "Saving Options..."));
        if (build.needsAll && !rows.hasWritten())
            return requirePicture(results);
        if (loop.wasCancelled() && QFileInfo::exists(build.path))
            return keepOlder(results);
        file->commit(build.options);
        if (run.leavesList)
            file->leaveList(build.listName);
    });
    loop.finish();
    if (report)
        takeBackWritten(results, report->ErrSystem);
    return !report;
}

} // namespace tarsel
