// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Mask.h"

#include <map>
#include <string>
#include <string_view>

namespace tarsel::players {

/// The font inside the players, at one size.
class Font {
public:
    /// Pixels from the highest to the lowest part of a letter.
    explicit Font(double height);

    /// Relative to the pen, which is on the base line. A letter that the font lacks is a box.
    const Mask& glyph(char32_t letter);
    /// Where the pen goes on from a letter; the space between some pairs is closer.
    double advance(char32_t letter, char32_t next = 0) const;
    double width(std::u32string_view text) const;
    double capHeight() const; ///< of a capital letter

private:
    double m_scale;
    std::map<char32_t, Mask> m_glyphs;
};

/// The letters of the text, each once, that the font lacks and shows as boxes. See lettersOf for the text.
std::u32string lettersWithoutGlyph(std::string_view text);

/// With the pen at x on the base line y.
void drawText(const Canvas& canvas, Font& font, std::u32string_view text, double x, double y,
              std::uint32_t color, double opacity = 1);

} // namespace tarsel::players
