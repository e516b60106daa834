// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace tarsel::players {

/// What the arguments of a player ask for.
///
///   none, /S...                       shows over the whole screen, or in the window of the host's
///   environment /P WINDOW, /P:WINDOW              shows in that window -window-id WINDOW, -root          the
///   same from the hosts of X11; -root names the window of the environment /C... tells that nothing can be
///   configured
///   --licences                        prints the licences of what is inside
///   anything else                     nothing
struct Command {
    enum class Action { Nothing, Show, Configure, PrintLicences };

    Action action = Action::Nothing;
    std::optional<std::uint64_t> host;
};

/// `arguments` without the program's name; `hostWindow` is what the environment says.
Command commandOf(const std::vector<std::string_view>& arguments, std::optional<std::uint64_t> hostWindow);

} // namespace tarsel::players
