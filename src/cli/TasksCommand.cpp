// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Command.h"
#include "cli/FilePaths.h"
#include "cli/JsonLine.h"
#include "cli/Terminal.h"
#include "tasks/TaskCheck.h"
#include "tasks/TaskFile.h"
#include "tasks/TaskWords.h"

#include <QCoreApplication>

namespace tarsel::cli {

namespace {

constexpr OptionSpec options[] = {
    {"json", nullptr,
     QT_TRANSLATE_NOOP("CommandLine",
                       "one JSON object a line: row, kind, key, name, state, reason, parameters")},
};

QString stateName(TaskCheck::State state) {
    switch (state) {
    case TaskCheck::State::Ok:
        return QStringLiteral("ok");
    case TaskCheck::State::Skipped:
        return QStringLiteral("skipped");
    case TaskCheck::State::Failed:
        break;
    }
    return QStringLiteral("failed");
}

QString jsonOf(int number, const TaskRow& row, const QString& name, const TaskCheck& check) {
    QList<JsonLine> parameters;
    for (const TaskColumn& column : columnsRead(row))
        parameters << JsonLine().add("name", QString::fromLatin1(column.name)).add("value", column.text(row));
    return JsonLine()
        .add("row", number)
        .add("kind", row.kind)
        .add("key", row.key)
        .add("name", name)
        .add("state", stateName(check.state))
        .add("reason", check.reason)
        .add("parameters", parameters)
        .text();
}

QString lineOf(int number, const TaskRow& row, const QString& name, const TaskCheck& check) {
    QString line = QStringLiteral("%1  %2").arg(number, 5).arg(name.isEmpty() ? row.key : name);
    if (const QString parameters = parametersInWords(row); !parameters.isEmpty())
        line += QStringLiteral(": ") + parameters;
    if (check.state != TaskCheck::State::Ok || !check.reason.isEmpty())
        line += QStringLiteral("  [%1: %2]").arg(stateName(check.state), check.reason);
    return line;
}

int run(const Arguments& arguments, Terminal& terminal) {
    if (arguments.operands().size() != 1)
        throw UsageError{QCoreApplication::translate("CommandLine", "expected one task list")};
    TaskList tasks;
    modSaveOpenImageList::readTaskBasket(filePath(arguments.operands().first()), tasks);
    bool allFine = true;
    for (int i = 0; i < tasks.count(); ++i) {
        const TaskRow row = tasks.row(i);
        const TaskCheck check = checkRow(row);
        const QString name = tasks.lvEdit.row(i).text;
        terminal.result((arguments.has("json") ? jsonOf : lineOf)(i + 1, row, name, check));
        allFine = allFine && check.state == TaskCheck::State::Ok;
    }
    return allFine ? AllDone : SomeNotDone;
}

} // namespace

constexpr Command tasksCommand{
    .name = "tasks",
    .operands = "F.tbf",
    .summary = QT_TRANSLATE_NOOP("CommandLine", "Show a task list in words and check it."),
    .notes = QT_TRANSLATE_NOOP(
        "CommandLine",
        "A task that would end a run is reported as failed, one that a run passes over as skipped; the exit\n"
        "status is 1 for both. A value that replays, but is outside the range of its control, is noted."),
    .options = options,
    .run = run,
};

} // namespace tarsel::cli
