// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/Interrupt.h"
#include "cli/JoinedOptions.h"
#include "cli/RowReport.h"
#include "cli/TaskSource.h"
#include "cli/Terminal.h"
#include "publishing/EffectBuilder.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"out", "FILE",
     QT_TRANSLATE_NOOP("CommandLine", "the greeting to write, whose name ends in .exe; required")},
    {"style", "simple|watery|raining-text|clock",
     QT_TRANSLATE_NOOP("CommandLine", "what happens to the picture; required")},
    {"text", "TEXT", QT_TRANSLATE_NOOP("CommandLine", "raining-text: the text (default: Happy Greetings!)")},
    {"color", "RRGGBB", QT_TRANSLATE_NOOP("CommandLine", "raining-text: its colour (default: black)")},
    {"clock", "analog|digital", QT_TRANSLATE_NOOP("CommandLine", "clock: its kind (default: analog)")},
    {"no-date", nullptr, QT_TRANSLATE_NOOP("CommandLine", "clock: leave out the date")},
    {"date-color", "RRGGBB", QT_TRANSLATE_NOOP("CommandLine", "clock: of the date (default: black)")},
    {"digital-color", "RRGGBB", QT_TRANSLATE_NOOP("CommandLine", "clock: of the digits (default: black)")},
    {"hour-color", "RRGGBB", QT_TRANSLATE_NOOP("CommandLine", "clock: of the hour hand (default: FF0000)")},
    {"minute-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "clock: of the minute hand (default: 008000)")},
    {"second-color", "RRGGBB",
     QT_TRANSLATE_NOOP("CommandLine", "clock: of the second hand (default: E0E0E0)")},
    joinedTasks,
    joinedSystem,
    joinedUpright,
    joinedStrip,
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine", "one JSON object: row, source, target, state, reason")},
};

using Settings = settings::PublishingSettings;

struct ColorOption {
    const char* name;
    GreetingStyle style;
    qint32 Settings::*field;
};

constexpr ColorOption colorOptions[] = {
    {"color", GreetingStyle::RainingText, &Settings::RollingTextColor},
    {"date-color", GreetingStyle::Clock, &Settings::DateColor},
    {"digital-color", GreetingStyle::Clock, &Settings::DigitalClockColor},
    {"hour-color", GreetingStyle::Clock, &Settings::HourColor},
    {"minute-color", GreetingStyle::Clock, &Settings::MinuteColor},
    {"second-color", GreetingStyle::Clock, &Settings::SecondColor},
};

bool isGiven(const Arguments& arguments, const char* option, GreetingStyle wanted, GreetingStyle style) {
    if (arguments.has(option) && style != wanted)
        throw UsageError{QCoreApplication::translate("CommandLine", "--%1 doesn't go with --style %2")
                             .arg(QLatin1String(option), arguments.value("style"))};
    return arguments.has(option);
}

Settings greetingSettings(const Arguments& arguments) {
    requireOption(arguments, "style");
    Settings settings;
    settings.EffectStyle = qint16(choiceIn(arguments, "style",
                                           {QStringLiteral("simple"), QStringLiteral("watery"),
                                            QStringLiteral("raining-text"), QStringLiteral("clock")}));
    const GreetingStyle style = styleOf(settings);
    for (const ColorOption& option : colorOptions)
        if (isGiven(arguments, option.name, option.style, style))
            settings.*option.field = colorIn(arguments.value(option.name), option.name);
    if (isGiven(arguments, "text", GreetingStyle::RainingText, style))
        settings.RainingText = arguments.value("text");
    if (isGiven(arguments, "clock", GreetingStyle::Clock, style))
        settings.ClockType =
            quint8(choiceIn(arguments, "clock", {QStringLiteral("analog"), QStringLiteral("digital")}));
    if (isGiven(arguments, "no-date", GreetingStyle::Clock, style))
        settings.ClockDate = 0;
    settings.PlayerSystem = joinedSystemOf(arguments);
    return settings;
}

int run(const Arguments& arguments, Terminal& terminal) {
    const Settings settings = greetingSettings(arguments);
    const QString target = joinedTarget(arguments, effectPath);
    if (arguments.operands().size() != 1)
        throw UsageError{QCoreApplication::translate("CommandLine", "expected one PICTURE")};
    TaskList tasks;
    readTasks(arguments, tasks);
    const InterruptScope interruptible;
    joined::EffectOptions record;
    takeEffectOptions(settings, record);
    if (!bytesOf(record))
        throw UsageError{QCoreApplication::translate("CommandLine", "--text is longer than 65535 bytes")};
    RowReport report(terminal, arguments.has("json"));
    ImageBox box;
    std::vector<RowResult> results;
    const auto replayed = [&] { return allTasks(tasks); };
    constexpr bool asks = false;
    const bool isComplete =
        subMakeEffectExe(target, settings, record, {filePath(arguments.operands().first()), box, replayed},
                         asks, joinedRun(arguments, interruptible.stop()), results);
    for (const RowResult& result : results)
        report.addAlone(result);
    return exitStatus(isComplete && report.allDone(false));
}

} // namespace

constexpr Command greetingCommand{
    .name = "greeting",
    .operands = "PICTURE",
    .required = "--out FILE --style STYLE",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Make a program that shows one picture with an effect."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "The file is written in one step, in place of an older one. Of a document with several pages "
        "the\nfirst is taken. The name gets the extension .exe where it hasn't that."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
