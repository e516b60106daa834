// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/CodePages.h"
#include "decoder/GdiCanvas.h"

#include <algorithm>

namespace tarsel::decoder {

namespace {

/// What the letters from '!' to '~' stand for in a font of symbols, and those from 0xA1 to 0xFE.
constexpr char32_t symbols[] =
    U"!∀#∃%&∋()∗+,−./0123456789:;<=>?≅ΑΒΧΔΕΦΓΗΙϑΚΛΜΝΟΠΘΡΣΤΥςΩΞΨΖ[∴]⊥_‾αβχδεφγηιϕκλμνοπθρστυϖωξψζ{|}∼";
constexpr char32_t upperSymbols[] =
    U"ϒ′≤⁄∞ƒ♣♦♥♠↔←↑→↓°±″≥×∝∂•÷≠≡≈…⏐⎯↵ℵℑℜ℘⊗⊕∅∩∪⊃⊇⊄⊂⊆∈∉∠∇®©™∏√⋅¬∧∨⇔⇐⇑⇒⇓◊〈®©™∑⎛⎜⎝⎡⎢⎣⎧⎨⎩⎪ 〉∫⌠⎮⌡⎞⎟⎠⎤⎥⎦⎫⎬⎭";
/// Accents and dots of the font of formulas, in pairs of a letter and what it stands for.
constexpr char32_t formulaSigns[] = U"&\u02D9'\u00A8K…L⋯M⋮O⋱hℏlℓ";

char32_t symbolOf(char32_t letter) {
    if (letter >= U'!' && letter <= U'~')
        return symbols[letter - U'!'];
    return letter >= 0xA1 && letter <= 0xFE ? upperSymbols[letter - 0xA1] : letter;
}

char32_t formulaSignOf(char32_t letter) {
    for (const char32_t* pair = formulaSigns; *pair; pair += 2)
        if (*pair == letter)
            return pair[1];
    return letter;
}

char32_t shownCharacter(const GdiFont& font, char32_t character) {
    constexpr char32_t privateArea = 0xF000;
    if (font.letters == GdiFont::Letters::Text)
        return character;
    const char32_t letter = character >= privateArea ? character - privateArea : character;
    return font.letters == GdiFont::Letters::Formula ? formulaSignOf(letter) : symbolOf(letter);
}

/// Height of the em in logical units.
double emHeight(const GdiFont& font, const FontShelf::Metrics& metrics) {
    const double line = metrics.ascent + metrics.descent;
    return font.isLineHeight && line > 0 ? font.height / line : font.height;
}

void addBar(QPainterPath& path, double width, double y, double thickness) {
    path.addRect(QRectF(0, y, width, thickness));
}

} // namespace

/// From the origin to the right, in ems of its own height; `width` is the distance to the next text.
QPainterPath GdiCanvas::textPath(const GdiText& text, double& width) const {
    const GdiFont& font = m_state.font;
    const FontShelf::Metrics metrics = m_fonts.metrics(font);
    const double em = emHeight(font, metrics);
    const double stretch = font.width > 0 && em > 0 ? font.width / (metrics.meanWidth * em) : 1;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    width = 0;
    for (std::size_t i = 0; i < text.characters.size(); ++i) {
        const char32_t character = text.characters[i];
        const Glyph glyph = text.areGlyphs ? m_fonts.glyphByNumber(font, character)
                            : character == zeroWidthSpace
                                ? Glyph{}
                                : m_fonts.glyph(font, shownCharacter(font, character));
        path.addPath(QTransform(em * stretch, 0, 0, em, width, 0).map(glyph.outline));
        width += i < text.advances.size() ? text.advances[i] : glyph.advance * em * stretch;
    }
    if (font.isUnderlined)
        addBar(path, width, 0.1 * em, 0.06 * em);
    if (font.isStruckOut)
        addBar(path, width, -0.3 * em, 0.06 * em);
    return path;
}

/// Letters stand upright whichever way the page's axes point, and turn with the world.
void GdiCanvas::drawText(const GdiText& text) {
    const FontShelf::Metrics metrics = m_fonts.metrics(m_state.font);
    const double em = emHeight(m_state.font, metrics);
    double width = 0;
    const QPainterPath glyphs = textPath(text, width);
    const unsigned align = m_state.textAlign;
    const QPointF reference = align & UpdatesPosition ? m_state.position : text.reference;
    const double left = (align & AlignCenter) == AlignCenter ? -width / 2 : align & AlignRight ? -width : 0;
    const double base = (align & AlignBaseLine) == AlignBaseLine ? 0
                        : align & AlignBottom                    ? -metrics.descent * em
                                                                 : metrics.ascent * em;
    const QTransform page = pageTransform();
    QTransform local;
    local.translate(reference.x(), reference.y());
    local.scale(page.m11() < 0 ? -1 : 1, page.m22() < 0 ? -1 : 1);
    local.rotate(-m_state.font.angle);
    local.translate(left, base);
    QPainterPath letters = toImage(local.map(glyphs));
    letters.setFillRule(Qt::WindingFill);
    if (m_isPathOpen) {
        m_path.addPath(letters);
        return;
    }
    m_painter.save();
    QPainterPath box;
    box.addRect(text.box.normalized());
    if (text.isClipped)
        m_painter.setClipPath(toImage(box), Qt::IntersectClip);
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (text.fillsBox)
        m_painter.fillPath(toImage(box), m_state.backColor);
    if (m_state.isBackOpaque && !text.characters.empty()) {
        QPainterPath line;
        line.addRect(QRectF(0, -metrics.ascent * em, width, (metrics.ascent + metrics.descent) * em));
        m_painter.fillPath(toImage(local.map(line)), m_state.backColor);
    }
    m_painter.fillPath(letters, m_state.textColor);
    m_painter.restore();
    if (align & UpdatesPosition)
        m_state.position += QPointF(page.m11() < 0 ? -width : width, 0);
}

} // namespace tarsel::decoder
