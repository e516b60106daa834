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
    {"prefix", "TEXT", "hybrid: in front, a text or a token such as \"[EXIF Date]\""},
    {"suffix", "TEXT", "hybrid: behind, likewise"},
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
    {"rows", "A-B", "do these rows only, numbered as in the whole basket"},
    {"dry-run", nullptr, "do everything but write"},
    {"json", nullptr, "one JSON object a line: row, source, target, state, reason"},
};

/// Without a word on where the files go, no source is replaced.
void refuseToReplaceSources(const ListView& pages, const TaskList& tasks, const BatchSave& settings) {
    for (const PlannedName& planned : planNames(pages, tasks.lvEditBatch, settings))
        if (planned.clash == NameClash::OwnSource || planned.clash == NameClash::OtherSource)
            throw UsageError{
                QStringLiteral("%1 is a source and would be replaced: say where the files go, by "
                               "--out or --source-folder")
                    .arg(planned.target)};
}

void prepareFolder(const BatchSave& settings, Terminal& terminal) {
    const QString folder = settings.DestinationFolder;
    if (settings.DestinationOption == 0 || modFileSystem::FolderExists(folder))
        return;
    modFileSystem::MakeFolder(folder);
    terminal.message(QStringLiteral("tarsel: made the folder %1").arg(folder));
}

int run(const Arguments& arguments, Terminal& terminal) {
    const BatchSave settings = batchSettings(arguments);
    BatchRun slice = batchRun(arguments);
    TaskList tasks;
    if (arguments.has("tasks"))
        modSaveOpenImageList::readTaskBasket(absolutePath(arguments.value("tasks")), tasks);
    const ApplicationScope application(drawsText(tasks));
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress);
    basket.fill(arguments.operands());
    if (!namesDestination(arguments) && settings.Overwrite == 1)
        refuseToReplaceSources(basket.pages(), tasks, settings);
    if (!slice.dryRun)
        prepareFolder(settings, terminal);

    RowReport report(terminal, arguments.has("json"));
    for (const QString& path : basket.missing())
        report.addMissing(path);
    slice.stop = interruptible.stop();
    slice.onRowBegin = [&](const QString& source) { terminal.setSubject(source); };
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
        "A file of the same name is replaced, safely: it is the old one or the new one, whole. An error "
        "ends\n"
        "the run; rows behind it are skipped as \"not reached\". SIGINT stops it after the current file.\n"
        "Each page of a document is a row of its own.",
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
