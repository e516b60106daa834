// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <vector>

namespace tarsel::decoder {

/// Follows a letter of two bytes, so that each byte has its distance to the next.
constexpr char32_t zeroWidthSpace = 0x200B;

/// Reads the tables of all code pages, which opens files.
void prepareCodePages();

/// Makes characters of the pairs of UTF-16.
void joinSurrogates(std::vector<char32_t>& characters);

/// One character for each byte of a text, by the number of the font's character set.
std::vector<char32_t> decodedText(int charset, const QByteArray& text);

} // namespace tarsel::decoder
