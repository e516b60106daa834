// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/ApplicationScope.h"
#include "cli/BasketWorkspace.h"
#include "cli/BatchSettings.h"
#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/RowReport.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "collections/clsFileInfo.h"
#include "output/NamePlan.h"
#include "tasks/TaskFile.h"

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"tasks", "F.tbf", "run this task list on every picture"},
    {"out", "FOLDER", "put the files there; made when missing (default: the current folder)"},
    {"source-folder", nullptr, "put each file beside its source"},
    {"name", "RULE",
     "keep (default): the source's name; hybrid: prefix, name, suffix; generic: name and count"},
    {"prefix", "TEXT", "hybrid: before the name, a text or a token such as \"[EXIF Date]\""},
    {"suffix", "TEXT", "hybrid: after the name, a text or a token"},
    {"separator1", "TEXT",
     "hybrid: between prefix and name, \"[WhiteSpace]\", \"[No Separator]\" (default: _)"},
    {"separator2", "TEXT", "hybrid: between name and suffix (default: _)"},
    {"generic", "NAME", "generic: the name (default: Sample)"},
    {"count", "PATTERN", "generic: first number, \"[Starting 1]\" or \"[Starting 1001]\" (default: 1)"},
    {"quality", "1..100", "of the JPEG files (default: 80)"},
    {"progressive", nullptr, "progressive JPEG"},
    {"gray", nullptr, "8 bit grayscale"},
    {"no-overwrite", nullptr, "skip rows whose file exists"},
    {"exif", "F.xiff", "set these EXIF attributes in every file"},
    {"iptc", "F.ffo", "replace the IPTC data of every file by these"},
    {"rows", "A-B", "do these rows only, numbered as in the full basket"},
    {"dry-run", nullptr, "do everything but write"},
    {"upright", nullptr, "turn pictures by their EXIF orientation before the tasks run"},
    {"json", nullptr, "one JSON object a line: row, source, target, state, reason"},
};

/// Where the user did not say where the files go, no source is replaced.
void refuseToReplaceSources(const ListView& pages, const TaskList& tasks,
                            const settings::BatchSave& settings) {
    for (const PlannedName& planned : planNames(pages, tasks.lvEditBatch, settings))
        if (planned.clash == NameClash::OwnSource || planned.clash == NameClash::OtherSource)
            throw UsageError{
                QStringLiteral("%1 is a source and would be replaced: say where the files go, by "
                               "--out or --source-folder")
                    .arg(planned.target)};
}

void prepareFolder(const settings::BatchSave& settings, Terminal& terminal) {
    const QString folder = settings.DestinationFolder;
    if (settings.DestinationOption == 0 || modFileSystem::FolderExists(folder))
        return;
    modFileSystem::MakeFolder(folder);
    terminal.message(QStringLiteral("tarsel: made the folder %1").arg(folder));
}

int run(const Arguments& arguments, Terminal& terminal) {
    const settings::BatchSave settings = batchSettings(arguments);
    BatchRun slice = batchRun(arguments);
    TaskList tasks;
    if (arguments.has("tasks"))
        modSaveOpenImageList::readTaskBasket(absolutePath(arguments.value("tasks")), tasks);
    const ApplicationScope application(drawsText(tasks));
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress, interruptible.stop());
    basket.fill(arguments.operands());
    slice.sourceReplacing = SourceReplacing::RefusedUntilDone;
    if (!namesDestination(arguments)) {
        slice.sourceReplacing = SourceReplacing::Refused;
        if (settings.Overwrite == 1)
            refuseToReplaceSources(basket.pages(), tasks, settings);
    }
    if (!slice.dryRun)
        prepareFolder(settings, terminal);

    RowReport report(terminal, arguments.has("json"));
    for (const QString& path : basket.missing())
        report.addMissing(path);
    slice.stop = interruptible.stop();
    slice.onRow = [&](const RowResult& result) { report.add(result); };
    ImageBox box;
    std::vector<RowResult> results;
    fncSaveSinglePage(basket.pages(), tasks.lvEditBatch, box, progress, settings, slice, results);
    report.summarise();
    return wasInterrupted() ? Interrupted : report.allDone(slice.dryRun) ? AllDone : SomeNotDone;
}

} // namespace

constexpr Command batchCommand{
    .name = "batch",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .summary = "Save a basket, or pictures, as JPEG files.",
    .notes =
        "A file of the same name is replaced in one step: at any moment it is the old or the new one.\n"
        "A source that another row still needs is never replaced: the row is skipped. Two rows that end\n"
        "in one file get a remark, and the exit status is 1. An error ends the run; the rows after it are\n"
        "skipped as \"not reached\". SIGINT or SIGTERM ends it after the current file.\n"
        "Each page of a document is a row of its own. Settings stay from picture to picture, such as the\n"
        "back colour that a task set: with --rows a list can give other pictures than in a full run.",
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
