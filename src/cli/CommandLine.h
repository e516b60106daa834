// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel::cli {

struct Command;
struct OptionSpec;
class Terminal;

/// The program: `words` are the arguments without the program's name. Returns the exit status.
int runCommandLine(const QStringList& words, Terminal& terminal);

/// A text of the tables of commands, in the user's language.
QString shownText(const char* text);
/// "--out FOLDER", as help texts and manual pages have it.
QString spelledOption(const OptionSpec& option);

QString programHelp();
QString commandHelp(const Command& command);

} // namespace tarsel::cli
