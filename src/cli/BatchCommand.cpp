// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BasketWorkspace.h"
#include "cli/BatchSettings.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/RowReport.h"
#include "cli/SizeOptions.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "collections/clsFileInfo.h"
#include "output/NamePlan.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"tasks", "F.tbf", QT_TRANSLATE_NOOP("CommandLine", "run this task list on every picture")},
    {"out", "FOLDER",
     QT_TRANSLATE_NOOP("CommandLine",
                       "put the files there; made when missing (default: the current folder)")},
    {"source-folder", nullptr, QT_TRANSLATE_NOOP("CommandLine", "put each file beside its source")},
    {"name", "RULE",
     QT_TRANSLATE_NOOP(
         "CommandLine",
         "keep (default): the source's name; hybrid: prefix, name, suffix; generic: name and count")},
    {"prefix", "TEXT",
     QT_TRANSLATE_NOOP("CommandLine", "hybrid: before the name, a text or a token such as \"[EXIF Date]\"")},
    {"suffix", "TEXT", QT_TRANSLATE_NOOP("CommandLine", "hybrid: after the name, a text or a token")},
    {"separator1", "TEXT",
     QT_TRANSLATE_NOOP("CommandLine",
                       "hybrid: between prefix and name, \"[WhiteSpace]\", \"[No Separator]\" (default: _)")},
    {"separator2", "TEXT", QT_TRANSLATE_NOOP("CommandLine", "hybrid: between name and suffix (default: _)")},
    {"generic", "NAME", QT_TRANSLATE_NOOP("CommandLine", "generic: the name (default: Sample)")},
    {"count", "PATTERN",
     QT_TRANSLATE_NOOP("CommandLine",
                       "generic: first number, \"[Starting 1]\" or \"[Starting 1001]\" (default: 1)")},
    {"quality", "1..100", QT_TRANSLATE_NOOP("CommandLine", "of the JPEG files (default: 80)")},
    {"progressive", nullptr, QT_TRANSLATE_NOOP("CommandLine", "progressive JPEG")},
    {"gray", nullptr, QT_TRANSLATE_NOOP("CommandLine", "8 bit grayscale")},
    {"no-overwrite", nullptr, QT_TRANSLATE_NOOP("CommandLine", "skip rows whose file exists")},
    {"exif", "F.xiff", QT_TRANSLATE_NOOP("CommandLine", "set these EXIF attributes in every file")},
    {"iptc", "F.ffo", QT_TRANSLATE_NOOP("CommandLine", "replace the IPTC data of every file by these")},
    maxSizeOption,
    minQualityOption,
    shrinkOption,
    {"strip-private", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "leave out GPS positions, serial numbers and makers' own data")},
    {"rows", "A-B", QT_TRANSLATE_NOOP("CommandLine", "do these rows only, numbered as in the full basket")},
    {"dry-run", nullptr, QT_TRANSLATE_NOOP("CommandLine", "do everything but write")},
    {"upright", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "turn pictures by their EXIF orientation before the tasks run")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: row, source, target, state, reason")},
};

/// Where the user did not say where the files go, no source is replaced.
void refuseToReplaceSources(const ListView& pages, const TaskList& tasks,
                            const settings::BatchSave& settings) {
    for (const PlannedName& planned : planNames(pages, tasks.lvEditBatch, settings))
        if (planned.clash == NameClash::OwnSource || planned.clash == NameClash::OtherSource)
            throw UsageError{QCoreApplication::translate(
                                 "CommandLine",
                                 "%1 is a source and would be replaced: say where the files go with "
                                 "--out or --source-folder")
                                 .arg(planned.target)};
}

void requireUtf8FileNames(const QStringList& operands) {
    for (const QString& operand : operands)
        if (!isBasketFile(operand))
            requireUtf8FileName(operand);
}

void prepareFolder(const settings::BatchSave& settings, Terminal& terminal) {
    const QString folder = settings.DestinationFolder;
    if (settings.DestinationOption == 0 || modFileSystem::FolderExists(folder))
        return;
    modFileSystem::MakeFolder(folder);
    terminal.message(QCoreApplication::translate("CommandLine", "tarsel: made the folder %1").arg(folder));
}

int run(const Arguments& arguments, Terminal& terminal) {
    const settings::BatchSave settings = batchSettings(arguments);
    BatchRun slice = batchRun(arguments);
    TaskList tasks;
    readTasks(arguments, tasks);
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    if (arguments.has("source-folder"))
        requireUtf8FileNames(arguments.operands());
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
    report.addMissing(basket.missing());
    slice.unreadSources = basket.missing();
    slice.stop = interruptible.stop();
    slice.onRow = [&](const RowResult& result) { report.add(result); };
    ImageBox box;
    std::vector<RowResult> results;
    fncSaveSinglePage(basket.pages(), tasks.lvEditBatch, box, progress, settings, slice, results);
    report.summarise();
    return exitStatus(report.allDone(slice.dryRun));
}

} // namespace

constexpr Command batchCommand{
    .name = "batch",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Save a basket, or pictures, as JPEG files."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "A file of the same name is replaced in one step: at any moment it is the old or the new one.\n"
        "A source that another row still needs is never replaced: the row is skipped. Two rows that end\n"
        "in one file are reported, and the exit status is 1. An error ends the run; the rows after it are\n"
        "skipped as \"not reached\". SIGINT or SIGTERM ends it after the current file.\n"
        "With --max-size a JPEG that is small enough, and that no task changes, is copied with its "
        "metadata.\n"
        "Each page of a document is a row of its own. Settings stay from picture to picture, such as the\n"
        "back colour that a task set: with --rows a list can make other pictures than in a full run."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
