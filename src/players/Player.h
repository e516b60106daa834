// SPDX-License-Identifier: MIT
#pragma once

#include "players/Payload.h"
#include "players/Show.h"

namespace tarsel::players {

/// One of the programs.
struct Player {
    std::string_view extension; ///< that its file has to have
    std::string title;
    std::unique_ptr<Show> (*makeShow)(const Payload& payload, const Box& screen, double now);
};

/// The exit status: 0, or 1 with a line on standard error.
int runPlayer(const Player& player, int argc, char** argv);

} // namespace tarsel::players
