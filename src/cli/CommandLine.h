// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel::cli {

struct Command;
class Terminal;

/// The program: `words` are the arguments without the program's name. Returns the exit status.
int runCommandLine(const QStringList& words, Terminal& terminal);

QString programHelp();
QString commandHelp(const Command& command);

} // namespace tarsel::cli
