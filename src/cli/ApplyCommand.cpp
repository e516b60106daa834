// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ErrorSubject.h"
#include "base/ErrorTrap.h"
#include "base/Spreading.h"
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/RowReport.h"
#include "cli/SinglePicture.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "codecs/Formats.h"
#include "collections/clsFileInfo.h"
#include "imaging/Upright.h"
#include "tasks/modProcessTasks.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"tasks", "F.tbf", QT_TRANSLATE_NOOP("CommandLine", "the task list; required")},
    {"upright", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "turn the picture by its EXIF orientation before the tasks run")},
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object: row, source, target, state, reason")},
};

void requireWritable(const QString& path) {
    if (!isWritable(modFileSystem::GetFileExtension(path).toLower()))
        throw UsageError{
            QCoreApplication::translate("CommandLine",
                                        "%1: the extension is not that of a format that can be written (%2)")
                .arg(path, writableExtensions().join(QStringLiteral(", ")))};
}

/// For other formats the tasks see the picture on white, as in a batch.
bool holdsAlpha(const QString& path) {
    return keepsTransparency(modFileSystem::GetFileExtension(path).toLower());
}

/// Writes nothing when a task fails: the picture would not be the one that was asked for.
SourceState apply(const QString& source, const QString& target, const TaskList& tasks, bool upright) {
    const SpreadingScope scope;
    ImageBox box;
    SourceState state = loadForTarget(box, source, target);
    if (!holdsAlpha(target))
        prepareForTasks(box, source, upright);
    else if (upright)
        turnUpright(box, source);
    const ListView noSelection;
    if (const auto failure =
            modProcessTasks::subProcessPages(noSelection, tasks.lvEditBatch, box, nullptr, true))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("CommandLine", "the task list ended early, nothing was written: %1")
                 .arg(failure->ErrSystem));
    state.losesOrientation =
        !upright && isOrientationLost(box, source, modFileSystem::GetFileExtension(target));
    box.SaveToFile(target);
    return state;
}

int run(const Arguments& arguments, Terminal& terminal) {
    requireOption(arguments, "tasks");
    if (arguments.operands().size() != 2)
        throw UsageError{QCoreApplication::translate("CommandLine", "expected IN OUT")};
    RowResult result;
    result.row = 1;
    result.source = filePath(arguments.operands().at(0));
    result.target = filePath(arguments.operands().at(1));
    requireWritable(result.target);
    TaskList tasks;
    readTasks(arguments, tasks);
    const ErrorSubject subject(result.source);
    RowReport report(terminal, arguments.has("json"));
    try {
        const SourceState state = apply(result.source, result.target, tasks, arguments.has("upright"));
        result.state = RowState::Written;
        if (!state.damage.isEmpty())
            result.remark(damageText(state));
        for (const QString& remark : remarksOn(result.source, state))
            terminal.message(remark);
    } catch (const TrappedError& error) {
        result.remark(error.description);
    }
    report.addAlone(result);
    return report.allDone(false) ? AllDone : SomeNotDone;
}

} // namespace

constexpr Command applyCommand{
    .name = "apply",
    .operands = "IN OUT",
    .required = "--tasks F.tbf",
    .summary = QT_TRANSLATE_NOOP("CommandLine",
                                 "Replay a task list on one picture; OUT's extension names the format."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "Metadata is kept where the format can hold it. Nothing is written when a task fails."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
