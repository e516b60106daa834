// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>

namespace tarsel::players {

/// Ends the player; the text is its line on standard error.
struct PlayerError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace tarsel::players
