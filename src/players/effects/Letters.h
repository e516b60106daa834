// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarsel::players {

/// UTF-8 where that is valid and has a letter of more than one byte, else Windows-1252. Control characters
/// become blanks.
std::u32string lettersOf(std::string_view text);

/// The words in lines of at most `longest` letters, or of one word; no empty line.
std::vector<std::u32string> phrasesOf(std::u32string_view letters, std::size_t longest);

} // namespace tarsel::players
