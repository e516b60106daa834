// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/CompletedWord.h"
#include "cli/ShellCompletion.h"

#include <QMap>

namespace tarsel::cli {

namespace {

/// What puts the words into COMPREPLY.
QString offer(const CompletedWord& word) {
    switch (word.kind) {
    case CompletedWord::Choice:
        return QStringLiteral("COMPREPLY=($(compgen -W %1 -- \"$cur\"))")
            .arg(shellQuoted(word.words.join(u' ')));
    case CompletedWord::Folder:
        return QStringLiteral("_filedir -d");
    case CompletedWord::File:
        return word.words.isEmpty() ? QStringLiteral("_filedir")
                                    : QStringLiteral("_filedir %1").arg(shellQuoted(word.words.join(u'|')));
    case CompletedWord::Nothing:
        break;
    }
    return QStringLiteral("COMPREPLY=()");
}

/// The branch of one command: values of its options, its options, its operands.
QString branch(const Command& command) {
    QString values;
    QStringList options;
    for (const OptionSpec& option : command.options) {
        options << QStringLiteral("--") + QLatin1String(option.name);
        if (option.value)
            values += QStringLiteral("                %1) %2; return ;;\n")
                          .arg(options.last(), offer(completedValue(command, option)));
    }
    options << QStringLiteral("--help");
    QString operands = offer(completedOperand(command));
    if (const QStringList actions = completedActions(command); !actions.isEmpty())
        operands = QStringLiteral("if ((cword == first)); then %1; else %2; fi")
                       .arg(offer({CompletedWord::Choice, actions}), operands);
    return QStringLiteral("        %1)\n"
                          "            case $prev in\n"
                          "%2"
                          "            esac\n"
                          "            $split && return\n"
                          "            if [[ $cur == -* ]]; then\n"
                          "                %3\n"
                          "            else\n"
                          "                %4\n"
                          "            fi ;;\n")
        .arg(shellQuoted(QLatin1String(command.name)), values, offer({CompletedWord::Choice, options}),
             operands);
}

} // namespace

QString shellQuoted(const QString& text) {
    return u'\'' + QString(text).replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

QString bashCompletion() {
    QString branches;
    QStringList first;
    QMap<QString, QStringList> groups;
    for (const Command* command : commands()) {
        const QString name = QLatin1String(command->name);
        if (!first.contains(name.section(u' ', 0, 0)))
            first << name.section(u' ', 0, 0);
        if (name.contains(u' '))
            groups[name.section(u' ', 0, 0)] << name.section(u' ', 1);
        branches += branch(*command);
    }
    QString seconds;
    for (auto group = groups.cbegin(); group != groups.cend(); ++group)
        seconds += QStringLiteral("        %1)\n"
                                  "            if ((cword == 2)); then\n"
                                  "                %2\n"
                                  "                return\n"
                                  "            fi\n"
                                  "            command+=\" ${words[2]}\" first=3 ;;\n")
                       .arg(group.key(), offer({CompletedWord::Choice, group.value()}));
    return QStringLiteral("# bash completion for tarsel                              -*- shell-script -*-\n"
                          "\n"
                          "_tarsel() {\n"
                          "    local cur prev words cword split\n"
                          "    _init_completion -s || return\n"
                          "    if ((cword == 1)); then\n"
                          "        %1\n"
                          "        return\n"
                          "    fi\n"
                          "    local command=${words[1]} first=2\n"
                          "    case $command in\n"
                          "%2"
                          "    esac\n"
                          "    case $command in\n"
                          "%3"
                          "    esac\n"
                          "} &&\n"
                          "    complete -F _tarsel tarsel\n")
        .arg(offer({CompletedWord::Choice,
                    first + QStringList{QStringLiteral("--help"), QStringLiteral("--version")}}),
             seconds, branches);
}

} // namespace tarsel::cli
