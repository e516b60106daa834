// SPDX-License-Identifier: MIT
#include "players/CommandLine.h"

#include <charconv>

namespace tarsel::players {

namespace {

/// Decimal, or hexadecimal after "0x". No window is 0.
std::optional<std::uint64_t> windowOf(std::string_view text) {
    const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (isHexadecimal)
        text.remove_prefix(2);
    std::uint64_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, isHexadecimal ? 16 : 10);
    return error == std::errc() && stop == end && number ? std::optional(number) : std::nullopt;
}

Command showIn(std::optional<std::uint64_t> host) {
    return host ? Command{Command::Action::Show, host} : Command{};
}

} // namespace

Command commandOf(const std::vector<std::string_view>& arguments, std::optional<std::uint64_t> hostWindow) {
    if (arguments.empty())
        return {Command::Action::Show, hostWindow};
    const std::string_view first = arguments[0];
    const std::string_view second = arguments.size() > 1 ? arguments[1] : std::string_view();
    if (first == "--licences")
        return {Command::Action::PrintLicences, {}};
    if (first == "-window-id" || first == "--window-id")
        return showIn(windowOf(second));
    if (first == "-root" || first == "--root")
        return showIn(hostWindow);
    if (first.size() < 2 || first[0] != '/')
        return {};
    switch (first[1]) {
    case 'S':
    case 's':
        return {Command::Action::Show, hostWindow};
    case 'P':
    case 'p': {
        const auto named = windowOf(first.size() > 3 && first[2] == ':' ? first.substr(3) : second);
        return showIn(named ? named : hostWindow);
    }
    case 'C':
    case 'c':
        return {Command::Action::Configure, {}};
    default:
        return {};
    }
}

} // namespace tarsel::players
