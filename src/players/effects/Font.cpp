// SPDX-License-Identifier: MIT
#include "players/effects/Font.h"

#include "players/effects/FontFile.h"
#include "players/effects/Letters.h"

#include <cmath>

#define STB_TRUETYPE_IMPLEMENTATION
#define STBTT_STATIC
#include <stb/stb_truetype.h>

namespace tarsel::players {

namespace {

const stbtt_fontinfo& font() {
    static const stbtt_fontinfo info = [] {
        stbtt_fontinfo opened{};
        stbtt_InitFont(&opened, fontFile, 0);
        return opened;
    }();
    return info;
}

} // namespace

Font::Font(double height) : m_scale(double(stbtt_ScaleForPixelHeight(&font(), float(height)))) {}

const Mask& Font::glyph(char32_t letter) {
    const auto [place, isNew] = m_glyphs.try_emplace(letter);
    Mask& mask = place->second;
    if (!isNew)
        return mask;
    const auto scale = float(m_scale);
    int right = 0;
    int bottom = 0;
    stbtt_GetCodepointBitmapBox(&font(), int(letter), scale, scale, &mask.left, &mask.top, &right, &bottom);
    mask.width = right - mask.left;
    mask.height = bottom - mask.top;
    mask.coverage.resize(std::size_t(mask.width) * std::size_t(mask.height));
    if (!mask.coverage.empty())
        stbtt_MakeCodepointBitmap(&font(), mask.coverage.data(), mask.width, mask.height, mask.width, scale,
                                  scale, int(letter));
    return mask;
}

double Font::advance(char32_t letter, char32_t next) const {
    int width = 0;
    int bearing = 0;
    stbtt_GetCodepointHMetrics(&font(), int(letter), &width, &bearing);
    const int closer = next ? stbtt_GetCodepointKernAdvance(&font(), int(letter), int(next)) : 0;
    return (width + closer) * m_scale;
}

double Font::width(std::u32string_view text) const {
    double sum = 0;
    for (std::size_t i = 0; i < text.size(); ++i)
        sum += advance(text[i], i + 1 < text.size() ? text[i + 1] : 0);
    return sum;
}

double Font::capHeight() const {
    int left = 0;
    int bottom = 0;
    int right = 0;
    int top = 0;
    stbtt_GetCodepointBox(&font(), 'H', &left, &bottom, &right, &top);
    return top * m_scale;
}

std::u32string lettersWithoutGlyph(std::string_view text) {
    std::u32string missing;
    for (const char32_t letter : lettersOf(text))
        if (stbtt_FindGlyphIndex(&font(), int(letter)) == 0 && missing.find(letter) == missing.npos)
            missing += letter;
    return missing;
}

void drawText(const Canvas& canvas, Font& font, std::u32string_view text, double x, double y,
              std::uint32_t color, double opacity) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        drawMask(canvas, font.glyph(text[i]), int(std::lround(x)), y, color, opacity);
        x += font.advance(text[i], i + 1 < text.size() ? text[i + 1] : 0);
    }
}

} // namespace tarsel::players
