// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <optional>

namespace tarsel {

/// Prints what --help or --version asks for and returns the exit status; nothing for other arguments. Needs
/// neither a display nor an application object.
std::optional<int> answerHelp(int argc, char** argv);

/// The argument without the program's name and options, if any; nothing for an option that is unknown or a
/// second argument, which standard error then says. Options of Qt have been removed by the application
/// object. "--" ends options.
std::optional<QStringList> operandsOf(const QStringList& arguments);

} // namespace tarsel
