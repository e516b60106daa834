// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The programs that show pictures by themselves, to which a joined file's pictures are added.
enum class Player { Saver, Slide, Simple, Watery, RainingText, Clock };

/// For which a player is a program.
enum class PlayerSystem { Linux, Windows };

/// The file of a player: "linux/watery" or "windows/watery.exe" in the folder that the environment variable
/// TARSEL_PLAYERS names, in "players" beside the program, or where an installation puts it. Error 53, with
/// how to get it, when it is missing.
QString playerFile(Player player, PlayerSystem system);

} // namespace tarsel
