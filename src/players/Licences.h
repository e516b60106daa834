// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace tarsel::players {

/// Of the player and of everything linked into it.
extern const std::string_view licences;

} // namespace tarsel::players
