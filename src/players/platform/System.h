// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/TiffStructure.h"
#include "players/effects/Effect.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tarsel::players {

double secondsNow(); ///< since some start; never goes back
ClockTime localTime();
std::uint32_t randomSeed();

/// The player's own file: the folder and the name of the running program, with `extension` (".scr") in place
/// of its own. Throws PlayerError where that can't be opened.
struct OwnFile {
    ByteSource bytes;
    std::string path;
};
OwnFile openOwnFile(std::string_view extension);

/// Whether this user runs the same program only once in this place of the screen; holds until it ends.
bool isOnlyInstance(const std::string& place);

/// The window that the screen saver host's environment names.
std::optional<std::uint64_t> hostWindow();

void complain(const std::string& line); ///< on standard error
void print(std::string_view text);      ///< on standard output
/// In a message box with an exclamation mark, until the user closes it; on standard output without a screen.
void showMessage(const std::string& title, const std::string& text);

} // namespace tarsel::players
