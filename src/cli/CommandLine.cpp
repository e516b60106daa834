// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"

#include "base/ErrorTrap.h"
#include "cli/ApplicationScope.h"
#include "cli/Command.h"
#include "cli/RawNameLinks.h"
#include "cli/Terminal.h"
#include "cli/TerminalDesktop.h"
#include "help/BuildFacts.h"

#include <QCoreApplication>
#include <algorithm>

namespace tarsel::cli {

namespace {

constexpr const Command* allCommands[] = {
    &batchCommand,          &albumCommand,          &saverCommand,         &slideCommand,
    &greetingCommand,       &joinedListCommand,     &joinedExtractCommand, &applyCommand,
    &encodeCommand,         &printCommand,          &captureCommand,       &scanCommand,
    &infoCommand,           &tasksCommand,          &basketCommand,        &metadataGetCommand,
    &metadataSetCommand,    &metadataDeleteCommand, &metadataClearCommand, &metadataExportCommand,
    &metadataImportCommand,
};

const Command* findCommand(const QString& name) {
    const auto found = std::ranges::find_if(
        allCommands, [&](const Command* command) { return name == QLatin1String(command->name); });
    return found == std::end(allCommands) ? nullptr : *found;
}

bool isHelp(const QString& word) {
    return word == QLatin1String("--help") || word == QLatin1String("-h");
}

/// Two columns, the first as wide as its longest text. Further lines of the second stay in it.
QString table(const QList<std::pair<QString, QString>>& rows) {
    qsizetype width = 0;
    for (const auto& row : rows)
        width = std::max(width, row.first.size());
    QString text;
    const QString indent = QLatin1Char('\n') + QString(width + 4, QLatin1Char(' '));
    for (const auto& row : rows)
        text += QStringLiteral("  ") + row.first.leftJustified(width + 2) +
                QString(row.second).replace(QLatin1Char('\n'), indent) + QLatin1Char('\n');
    return text;
}

/// The commands whose names begin so, with what each does.
QString commandTable(const QString& start = {}) {
    QList<std::pair<QString, QString>> rows;
    for (const Command* command : commands())
        if (const QString name = QString::fromUtf8(command->name); name.startsWith(start))
            rows.append({name, shownText(command->summary)});
    return table(rows);
}

int wrongUsage(const QString& fact, const QString& helpOf, Terminal& terminal) {
    terminal.message(QStringLiteral("tarsel: ") + fact);
    terminal.message(QCoreApplication::translate("CommandLine", "Try \"tarsel %1--help\".").arg(helpOf));
    return WrongUsage;
}

int runCommand(const Command& command, const QStringList& words, Terminal& terminal) {
    try {
        const Arguments arguments(words, command.options);
        if (arguments.wantsHelp()) {
            terminal.results(commandHelp(command).trimmed().split(QLatin1Char('\n')));
            return AllDone;
        }
        return command.run(arguments, terminal);
    } catch (const UsageError& error) {
        return wrongUsage(error.fact, QLatin1String(command.name) + QLatin1Char(' '), terminal);
    } catch (const TrappedError& error) {
        terminal.message(QStringLiteral("tarsel: ") + error.description);
        return SomeNotDone;
    }
}

int runWords(const QStringList& words, Terminal& terminal) {
    const QString first = words.value(0);
    if (words.isEmpty())
        return wrongUsage(QCoreApplication::translate("CommandLine", "no command given"), {}, terminal);
    if (first == QLatin1String("--version")) {
        terminal.result(QStringLiteral("tarsel ") + QLatin1String(TARSEL_VERSION));
        if (words.mid(1) == QStringList{QStringLiteral("--verbose")})
            terminal.results(buildReport().trimmed().split(QLatin1Char('\n')));
        return AllDone;
    }
    if (isHelp(first)) {
        terminal.results(programHelp().trimmed().split(QLatin1Char('\n')));
        return AllDone;
    }
    if (const Command* command = findCommand(first))
        return runCommand(*command, words.mid(1), terminal);
    const QString pair = words.mid(0, 2).join(u' ');
    if (const Command* command = findCommand(pair))
        return runCommand(*command, words.mid(2), terminal);
    const bool isGroup = std::ranges::any_of(allCommands, [&](const Command* command) {
        return QLatin1String(command->name).startsWith(first + u' ');
    });
    if (isGroup && words.size() == 2 && isHelp(words[1])) {
        const QString help = QCoreApplication::translate("CommandLine", "Commands of tarsel %1:\n%2")
                                 .arg(first, commandTable(first + u' '));
        terminal.results(help.trimmed().split(QLatin1Char('\n')));
        return AllDone;
    }
    return wrongUsage(
        QCoreApplication::translate("CommandLine", "unknown command \"%1\"").arg(isGroup ? pair : first), {},
        terminal);
}

} // namespace

std::span<const Command* const> commands() {
    return allCommands;
}

QString shownText(const char* text) {
    return QCoreApplication::translate("CommandLine", text);
}

QString spelledOption(const OptionSpec& option) {
    QString text = QStringLiteral("--") + QLatin1String(option.name);
    if (option.value)
        text += QLatin1Char(' ') + QLatin1String(option.value);
    return text;
}

QString programHelp() {
    return QCoreApplication::translate("CommandLine",
                                       "Usage: tarsel COMMAND [OPTION]... [OPERAND]...\n"
                                       "       tarsel COMMAND --help\n"
                                       "       tarsel --version [--verbose]\n\n"
                                       "Makes JPEG documents from collections of pictures.\n\nCommands:\n") +
           commandTable() +
           QCoreApplication::translate(
               "CommandLine",
               "\nResults go to standard output, messages to standard error.\n"
               "Exit status: 0 all done, 1 something not done, 2 wrong usage, 130 interrupted.\n");
}

QString commandHelp(const Command& command) {
    QList<std::pair<QString, QString>> rows;
    for (const OptionSpec& option : command.options)
        rows.append({spelledOption(option), shownText(option.help)});
    rows.append({QStringLiteral("--help"), QCoreApplication::translate("CommandLine", "show this text")});
    const QString beforeOptions =
        QLatin1String(command.name) + QLatin1Char(' ') + QLatin1String(command.required);
    QString help = QCoreApplication::translate("CommandLine",
                                               "Usage: tarsel %1 [OPTION]... %2\n\n%3\n\nOptions:\n%4\n%5\n")
                       .arg(beforeOptions.trimmed(), QString::fromUtf8(command.operands),
                            shownText(command.summary), table(rows), shownText(command.notes));
    return help.replace(QStringLiteral(" \n"), QStringLiteral("\n")); // of a command without operands
}

int runCommandLine(const QStringList& words, Terminal& terminal) {
    const bool isForScripts = words.contains(QLatin1String("--json"));
    const ApplicationScope application(isForScripts ? RunLanguage::English : RunLanguage::OfUser);
    const TerminalDesktop desktop(terminal);
    const RawNameLinks links;
    const int status = runWords(words, terminal);
    return terminal.finish() || status != AllDone ? status : SomeNotDone;
}

} // namespace tarsel::cli
