// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Arguments.h"

#include <span>

namespace tarsel::cli {

class Terminal;

/// What the program ends with: a promise to scripts.
enum ExitStatus { AllDone = 0, SomeNotDone = 1, WrongUsage = 2, Interrupted = 130 };

/// One command of the command line.
struct Command {
    const char* name;          ///< one word, or two: that of a group and its own
    const char* operands;      ///< after the options in the first line of its help
    const char* required = ""; ///< options before the others in that line, which it can't do without
    const char* summary;       ///< one line for the list of commands
    const char* notes;         ///< paragraphs after the options in its help
    std::span<const OptionSpec> options;
    /// Throws UsageError for wrong usage and TrappedError for what makes the command impossible.
    int (*run)(const Arguments& arguments, Terminal& terminal);
};

/// All commands, in the order of the help.
std::span<const Command* const> commands();

extern const Command albumCommand;
extern const Command batchCommand;
extern const Command applyCommand;
extern const Command captureCommand;
extern const Command encodeCommand;
extern const Command infoCommand;
extern const Command printCommand;
extern const Command scanCommand;
extern const Command tasksCommand;
extern const Command saverCommand, slideCommand, greetingCommand;
extern const Command joinedListCommand, joinedExtractCommand;
extern const Command basketCommand;
extern const Command metadataGetCommand, metadataSetCommand, metadataDeleteCommand;
extern const Command metadataClearCommand, metadataExportCommand, metadataImportCommand;

} // namespace tarsel::cli
