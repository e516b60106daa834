// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/BasketWorkspace.h"
#include "cli/Command.h"
#include "cli/Interrupt.h"
#include "cli/JoinedOptions.h"
#include "cli/RowReport.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "publishing/SaverBuilder.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

template <const char* fileHelp>
constexpr OptionSpec optionsWith[] = {
    {"out", "FILE", fileHelp},
    {"interval", "1..9", QT_TRANSLATE_NOOP("CommandLine", "seconds between two pictures (default: 3)")},
    {"background", "RRGGBB", QT_TRANSLATE_NOOP("CommandLine", "colour round the pictures (default: black)")},
    {"quality", "1..100", QT_TRANSLATE_NOOP("CommandLine", "of the pictures (default: 80)")},
    joinedTasks,
    joinedSystem,
    joinedUpright,
    joinedStrip,
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object a line: row, source, target, state, reason")},
};

constexpr char saverFile[] =
    QT_TRANSLATE_NOOP("CommandLine", "the screen saver to write, whose name ends in .scr; required");
constexpr char slideFile[] =
    QT_TRANSLATE_NOOP("CommandLine", "the slide show to write, whose name ends in .exe; required");

settings::PublishingSettings saverSettings(const Arguments& arguments, bool isSlide) {
    settings::PublishingSettings settings;
    settings.SaverType = isSlide ? 1 : 0;
    if (arguments.has("interval"))
        settings.SaverInterval = qint16(numberIn(arguments.value("interval"), 1, 9, "interval"));
    if (arguments.has("background"))
        settings.SaverBackColor = colorIn(arguments.value("background"), "background");
    if (arguments.has("quality"))
        settings.SaverQuality = qint16(numberIn(arguments.value("quality"), 1, 100, "quality"));
    settings.PlayerSystem = joinedSystemOf(arguments);
    return settings;
}

template <bool isSlide>
int run(const Arguments& arguments, Terminal& terminal) {
    const settings::PublishingSettings settings = saverSettings(arguments, isSlide);
    const QString target =
        joinedTarget(arguments, [](const QString& path) { return saverPath(path, isSlide); });
    TaskList tasks;
    readTasks(arguments, tasks);
    const InterruptScope interruptible;
    TerminalProgress progress(terminal);
    BasketWorkspace basket(progress, interruptible.stop());
    basket.fill(arguments.operands());
    RowReport report(terminal, arguments.has("json"));
    report.addMissing(basket.missing());
    JoinedRun joined = joinedRun(arguments, interruptible.stop());
    joined.unreadSources = basket.missing();
    const auto replayed = [&] { return allTasks(tasks); };
    ImageBox box;
    std::vector<RowResult> results;
    const bool isComplete =
        basket.pages().isEmpty() ||
        MkSaver(target, settings, {basket.pages(), box, replayed}, progress, joined, results);
    for (const RowResult& result : results)
        report.add(result);
    report.summarise();
    return exitStatus(isComplete && report.allDone(false));
}

constexpr char notes[] = QT_TRANSLATE_NOOP(
    "CommandLine",
    "The file shows the pictures by itself. A row whose picture fails is left out, the others go on, and\n"
    "the exit status is 1. The file is written in one step at the end, in place of an older one. After an\n"
    "interrupt it has the pictures so far, but an older one stays; after an error it is not written. No\n"
    "source is replaced.\n"
    "The name gets its extension where it hasn't that.");

} // namespace

constexpr Command saverCommand{
    .name = "saver",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .required = "--out FILE",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Make a screen saver of a basket, or of pictures."),
    .notes = notes,
    .options = optionsWith<saverFile>,
    .run = run<false>,
};

constexpr Command slideCommand{
    .name = "slide",
    .operands = "BASKET.ibf|BASKET.ibd | PICTURE...",
    .required = "--out FILE",
    .summary = QT_TRANSLATE_NOOP("CommandLine",
                                 "Make a slide show that runs by itself, of a basket, or of pictures."),
    .notes = notes,
    .options = optionsWith<slideFile>,
    .run = run<true>,
};

} // namespace tarsel::cli
