// SPDX-License-Identifier: MIT
#include "players/Player.h"

#include "players/CommandLine.h"
#include "players/Licences.h"
#include "players/platform/PlayerError.h"
#include "players/platform/System.h"

#include <new>

namespace tarsel::players {

namespace {

void show(const Player& player, std::optional<std::uint64_t> host) {
    const Payload payload(openOwnFile(player.extension));
    const auto window = Window::open({player.title, host});
    const auto content = player.makeShow(payload, window->screen(), secondsNow());
    run(*content, *window, host.has_value());
}

void obey(const Player& player, const Command& command) {
    if (!isOnlyInstance(command.host ? std::to_string(*command.host) : std::string("screen")))
        return;
    switch (command.action) {
    case Command::Action::Show:
        return show(player, command.host);
    case Command::Action::Configure:
        return showMessage("Config", "No Configurations Can Be Made.");
    case Command::Action::PrintLicences:
        return print(licences);
    case Command::Action::Nothing:
        return;
    }
}

} // namespace

int runPlayer(const Player& player, int argc, char** argv) {
    try {
        obey(player, commandOf({argv + (argc > 0), argv + argc}, hostWindow()));
        return 0;
    } catch (const PlayerError& error) {
        complain(error.what());
    } catch (const std::bad_alloc&) {
        complain("There is not enough memory for this picture.");
    }
    return 1;
}

} // namespace tarsel::players
