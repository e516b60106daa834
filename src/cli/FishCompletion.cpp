// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"
#include "cli/CompletedWord.h"
#include "cli/ShellCompletion.h"

#include <QSet>

namespace tarsel::cli {

namespace {

/// In single quotes, where fish takes a backslash before a quote.
QString quoted(const QString& text) {
    return u'\'' +
           QString(text)
               .replace(u'\\', QStringLiteral("\\\\"))
               .replace(u'\'', QStringLiteral("\\'"))
               .replace(u'\n', u' ') +
           u'\'';
}

/// The options of `complete` that offer the words.
QString offer(const CompletedWord& word) {
    switch (word.kind) {
    case CompletedWord::Choice:
        return QStringLiteral("-x -a ") + quoted(word.words.join(u' '));
    case CompletedWord::Folder:
        return QStringLiteral("-x -a '(__fish_complete_directories)'");
    case CompletedWord::File:
        return word.words.isEmpty()
                   ? QStringLiteral("-r -F")
                   : QStringLiteral("-x -k -a '(__fish_complete_suffix .%1)'").arg(word.words.first());
    case CompletedWord::Nothing:
        break;
    }
    return QStringLiteral("-x");
}

QString linesOf(const Command& command) {
    const QString name = QLatin1String(command.name);
    const QString start = QStringLiteral("complete -c tarsel -n '__tarsel_runs %1' ").arg(name);
    QString text;
    for (const OptionSpec& option : command.options)
        text +=
            start + QStringLiteral("-l %1 %2%3-d %4\n")
                        .arg(QLatin1String(option.name),
                             option.value ? offer(completedValue(command, option)) : QString(),
                             option.value ? QStringLiteral(" ") : QString(), quoted(shownText(option.help)));
    text += start + QStringLiteral("-l help -d 'Show the options'\n");
    if (const QStringList actions = completedActions(command); !actions.isEmpty())
        text += QStringLiteral("complete -c tarsel -n '__tarsel_ends %1' -x -a %2\n")
                    .arg(name, quoted(actions.join(u' ')));
    const CompletedWord operand = completedOperand(command);
    if (operand.kind == CompletedWord::Nothing || !operand.words.isEmpty())
        text += start + offer(operand) + u'\n';
    return text;
}

} // namespace

QString fishCompletion() {
    QString lines;
    QSet<QString> groups;
    for (const Command* command : commands()) {
        const QString name = QLatin1String(command->name), group = name.section(u' ', 0, 0);
        const QString purpose = quoted(shownText(command->summary));
        if (!name.contains(u' '))
            lines +=
                QStringLiteral("complete -c tarsel -n '__tarsel_ends' -x -a %1 -d %2\n").arg(name, purpose);
        else {
            if (!groups.contains(group))
                lines += QStringLiteral("complete -c tarsel -n '__tarsel_ends' -x -a %1\n").arg(group);
            groups.insert(group);
            lines += QStringLiteral("complete -c tarsel -n '__tarsel_ends %1' -x -a %2 -d %3\n")
                         .arg(group, name.section(u' ', 1), purpose);
        }
        lines += linesOf(*command);
    }
    return QStringLiteral("# Whether the words after tarsel begin with these.\n"
                          "function __tarsel_runs\n"
                          "    set -l words (commandline -opc)[2..-1]\n"
                          "    test (count $words) -ge (count $argv)\n"
                          "    and test \"$words[1..\"(count $argv)\"]\" = \"$argv\"\n"
                          "end\n"
                          "\n"
                          "# Whether they are these.\n"
                          "function __tarsel_ends\n"
                          "    set -l words (commandline -opc)[2..-1]\n"
                          "    test \"$words\" = \"$argv\"\n"
                          "end\n"
                          "\n"
                          "complete -c tarsel -n '__tarsel_ends' -l help -d 'Show the commands'\n"
                          "complete -c tarsel -n '__tarsel_ends' -l version -d 'Show the version'\n") +
           lines;
}

} // namespace tarsel::cli
