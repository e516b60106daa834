// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Command.h"

#include <QStringList>

namespace tarsel::cli {

/// What a shell offers in the place of a word.
struct CompletedWord {
    enum Kind {
        Nothing, ///< a number, a colour, a text of the user's own
        Choice,
        Folder,
        File,
    };
    Kind kind = Nothing;
    QStringList words = {}; ///< the choices; of files their extensions, none for all files
};

/// The value of an option. By the form of its place holder, or, where that names a set of words, by those
/// words.
CompletedWord completedValue(const Command& command, const OptionSpec& option);

/// The words after the options.
CompletedWord completedOperand(const Command& command);

/// What the first operand of the command chooses from, before those of completedOperand; else none.
QStringList completedActions(const Command& command);

} // namespace tarsel::cli
