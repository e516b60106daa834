// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>

namespace tarsel::cli {

/// A line of the manual page of a command that a user can try.
struct Example {
    const char* command; ///< the name in its record
    const char* purpose; ///< a sentence, in the context "ManualPage" of the translations
    const char* words;   ///< for the shell, after "tarsel" and the command's name
};

/// In the order of the commands.
std::span<const Example> examples();

} // namespace tarsel::cli
