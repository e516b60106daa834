// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "decoder/GdiObjects.h"

#include <QPainterPath>
#include <memory>

namespace tarsel::decoder {

/// A glyph in units of the em: x to the right, y down from the base line.
struct Glyph {
    QPainterPath outline;
    double advance = 0;
};

/// The system's fonts for the three kinds in four styles. All files are in memory once it is made, so that it
/// works in a process that may not open files any more.
class FontShelf {
public:
    FontShelf();
    ~FontShelf();
    FontShelf(const FontShelf&) = delete;
    FontShelf& operator=(const FontShelf&) = delete;

    /// An empty outline for a character that no font has.
    Glyph glyph(const GdiFont& font, char32_t character) const;
    /// By its number in the usual fonts of these files, whose first glyphs follow ASCII from number 3 on.
    Glyph glyphByNumber(const GdiFont& font, unsigned number) const;
    /// Heights above and below the base line, and the mean width of a letter, in units of the em.
    struct Metrics {
        double ascent = 0.8, descent = 0.2, meanWidth = 0.5;
    };
    Metrics metrics(const GdiFont& font) const;

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace tarsel::decoder
