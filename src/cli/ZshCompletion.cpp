// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CommandLine.h"
#include "cli/CompletedWord.h"
#include "cli/ShellCompletion.h"

#include <QMap>

namespace tarsel::cli {

namespace {

/// Without what ends a part of an argument of _arguments or _describe.
QString part(QString text) {
    for (const QChar special : {u'\\', u':', u'[', u']'})
        text.replace(special, QStringLiteral("\\") + special);
    return text.replace(u'\n', u' ');
}

/// The action of _arguments that offers the words.
QString action(const CompletedWord& word) {
    switch (word.kind) {
    case CompletedWord::Choice:
        return QStringLiteral("(%1)").arg(word.words.join(u' '));
    case CompletedWord::Folder:
        return QStringLiteral("_files -/");
    case CompletedWord::File:
        return word.words.isEmpty() ? QStringLiteral("_files")
                                    : QStringLiteral("_files -g \"*.(%1)(-.)\"").arg(word.words.join(u'|'));
    case CompletedWord::Nothing:
        break;
    }
    return QStringLiteral(" ");
}

QString optionArgument(const Command& command, const OptionSpec& option) {
    QString text = option.isRepeated ? QStringLiteral("*") : QString();
    text += QStringLiteral("--%1%2[%3]")
                .arg(QLatin1String(option.name), option.value ? QStringLiteral("=") : QString(),
                     part(shownText(option.help)));
    if (option.value)
        text += QStringLiteral(":%1:%2").arg(part(QLatin1String(option.value)),
                                             action(completedValue(command, option)));
    return shellQuoted(text);
}

QString branch(const Command& command) {
    QStringList arguments;
    for (const OptionSpec& option : command.options)
        arguments << optionArgument(command, option);
    arguments << shellQuoted(QStringLiteral("--help[show the options]"));
    if (const QStringList actions = completedActions(command); !actions.isEmpty())
        arguments << shellQuoted(QStringLiteral("1:action:") + action({CompletedWord::Choice, actions}));
    if (const CompletedWord operand = completedOperand(command); operand.kind != CompletedWord::Nothing)
        arguments << shellQuoted(QStringLiteral("*:file:") + action(operand));
    return QStringLiteral("        %1)\n            _arguments -S \\\n                %2 ;;\n")
        .arg(shellQuoted(QLatin1String(command.name)),
             arguments.join(QStringLiteral(" \\\n                ")));
}

/// What calls _describe with names and what they do.
QString described(const QStringList& entries) {
    return QStringLiteral("local -a entries=(\n            %1)\n        _describe command entries")
        .arg(entries.join(QStringLiteral("\n            ")));
}

} // namespace

QString zshCompletion() {
    QString branches;
    QStringList first;
    QMap<QString, QStringList> groups;
    for (const Command* command : commands()) {
        const QString name = QLatin1String(command->name), group = name.section(u' ', 0, 0);
        const QString purpose = u':' + part(shownText(command->summary));
        if (!name.contains(u' '))
            first << shellQuoted(name + purpose);
        else if (!groups.contains(group))
            first << shellQuoted(group + QStringLiteral(":Commands of this name"));
        if (name.contains(u' '))
            groups[group] << shellQuoted(name.section(u' ', 1) + purpose);
        branches += branch(*command);
    }
    QString seconds;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group)
        seconds +=
            QStringLiteral("    if [[ $command == %1 ]]; then\n"
                           "        if (( CURRENT == 2 )); then\n        %2\n        return\n        fi\n"
                           "        command+=\" $words[2]\"\n"
                           "        shift words\n        (( CURRENT-- ))\n"
                           "    fi\n")
                .arg(group.key(), described(group.value()));
    return QStringLiteral("#compdef tarsel\n"
                          "\n"
                          "_tarsel() {\n"
                          "    if (( CURRENT == 2 )); then\n"
                          "        %1\n"
                          "        compadd -- --help --version\n"
                          "        return\n"
                          "    fi\n"
                          "    local command=$words[2]\n"
                          "    shift words\n"
                          "    (( CURRENT-- ))\n"
                          "%2"
                          "    case $command in\n"
                          "%3"
                          "    esac\n"
                          "}\n"
                          "\n"
                          "_tarsel \"$@\"\n")
        .arg(described(first), seconds, branches);
}

} // namespace tarsel::cli
