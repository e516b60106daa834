// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>

namespace tarsel {

/// Where the programs keep what users don't start by themselves, in the order of search: beside the running
/// program, as in a build folder, and lib/tarsel-jpeg next to its folder, as an installation has it.
std::array<std::filesystem::path, 2> privateFolders();

/// The path of a private program or another private file, such as "tarsel-decoder". Of a missing one, the
/// path beside the running program.
std::filesystem::path privateFile(const std::filesystem::path& name);

} // namespace tarsel
