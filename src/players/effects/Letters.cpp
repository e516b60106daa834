// SPDX-License-Identifier: MIT
#include "players/effects/Letters.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>

namespace tarsel::players {

namespace {

/// Of the bytes 0x80 to 0x9F; 0 where there is none.
constexpr char32_t upperLetters[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                       0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                       0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                       0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

char32_t letterOf(unsigned char byte) {
    return byte >= 0x80 && byte < 0xA0 ? upperLetters[byte - 0x80] : byte;
}

/// Takes the first letter from `text`; nothing where no valid one is there.
std::optional<char32_t> takeUtf8(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const int length = std::max(1, std::countl_one(first));
    if (first < 0x80) {
        text.remove_prefix(1);
        return first;
    }
    if (length < 2 || length > 4 || text.size() < std::size_t(length))
        return std::nullopt;
    char32_t letter = first & (0x7F >> length);
    for (int i = 1; i < length; ++i) {
        const auto byte = static_cast<unsigned char>(text[std::size_t(i)]);
        if ((byte & 0xC0) != 0x80)
            return std::nullopt;
        letter = letter << 6 | (byte & 0x3F);
    }
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    if (letter < least[length] || letter > 0x10FFFF || (letter >= 0xD800 && letter < 0xE000))
        return std::nullopt;
    text.remove_prefix(std::size_t(length));
    return letter;
}

std::optional<std::u32string> fromUtf8(std::string_view text) {
    std::u32string letters;
    while (!text.empty()) {
        const auto letter = takeUtf8(text);
        if (!letter)
            return std::nullopt;
        letters += *letter;
    }
    return letters;
}

} // namespace

std::u32string lettersOf(std::string_view text) {
    auto letters = fromUtf8(text);
    if (!letters) { // plain ASCII reads the same either way
        letters.emplace();
        for (const char byte : text)
            *letters += letterOf(static_cast<unsigned char>(byte));
    }
    for (char32_t& letter : *letters) {
        if (letter < U' ' || letter == 0x7F)
            letter = U' ';
    }
    return *letters;
}

std::vector<std::u32string> phrasesOf(std::u32string_view letters, std::size_t longest) {
    std::vector<std::u32string> phrases;
    while (!letters.empty()) {
        const std::u32string_view word = letters.substr(0, letters.find(U' '));
        letters.remove_prefix(std::min(letters.size(), word.size() + 1));
        if (word.empty())
            continue;
        if (phrases.empty() || phrases.back().size() + 1 + word.size() > longest)
            phrases.emplace_back(word);
        else
            phrases.back().append(1, U' ').append(word);
    }
    return phrases;
}

} // namespace tarsel::players
