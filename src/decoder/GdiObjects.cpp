// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/GdiObjects.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace tarsel::decoder {

namespace {

constexpr int usualFontHeight = 12;
constexpr int boldFrom = 600;
constexpr int symbolCharset = 2;
constexpr int fixedPitch = 1;
constexpr int familyMask = 0xF0, romanFamily = 0x10, modernFamily = 0x30;

bool containsAny(const QString& text, std::initializer_list<const char*> words) {
    return std::ranges::any_of(words, [&](const char* word) { return text.contains(QLatin1String(word)); });
}

GdiFont::Kind kindOf(const LogicalFont& font) {
    const QString face = font.face.toLower();
    const int family = font.pitchAndFamily & familyMask;
    if (containsAny(face, {"courier", "mono", "consol", "typewriter", "terminal", "fixed"}))
        return GdiFont::Kind::Mono;
    if (containsAny(face, {"sans", "arial", "helvetica", "verdana", "tahoma", "calibri"}))
        return GdiFont::Kind::Sans;
    if (containsAny(face, {"times", "roman", "serif", "georgia", "garamond", "cambria", "palatino", "book"}))
        return GdiFont::Kind::Serif;
    if (family == modernFamily && (font.pitchAndFamily & fixedPitch))
        return GdiFont::Kind::Mono;
    return family == romanFamily ? GdiFont::Kind::Serif : GdiFont::Kind::Sans;
}

} // namespace

GdiFont fontOf(const LogicalFont& font) {
    GdiFont result;
    result.height = font.height == 0 ? usualFontHeight : std::abs(double(font.height));
    result.isLineHeight = font.height > 0;
    result.width = std::abs(double(font.width));
    result.angle = font.escapement / 10.0;
    result.isBold = font.weight >= boldFrom;
    result.isItalic = font.italic != 0;
    result.isUnderlined = font.underline != 0;
    result.isStruckOut = font.strikeOut != 0;
    if (font.charset == symbolCharset)
        result.letters =
            font.face == QLatin1String("MT Extra") ? GdiFont::Letters::Formula : GdiFont::Letters::Symbols;
    result.kind = kindOf(font);
    result.charset = font.charset;
    return result;
}

QColor colorOf(std::uint32_t reference) {
    return QColor(int(reference & 255), int(reference >> 8 & 255), int(reference >> 16 & 255));
}

GdiPen penOf(std::uint32_t style, double width, std::uint32_t color) {
    constexpr Qt::PenCapStyle caps[] = {Qt::RoundCap, Qt::SquareCap, Qt::FlatCap};
    constexpr Qt::PenJoinStyle joins[] = {Qt::RoundJoin, Qt::BevelJoin, Qt::MiterJoin};
    const int kind = int(style & 15);
    return {kind > GdiPen::Alternate ? int(GdiPen::Solid) : kind, std::abs(width), colorOf(color),
            caps[std::min(style >> 8 & 15, 2U)], joins[std::min(style >> 12 & 15, 2U)]};
}

GdiBrush brushOf(std::uint32_t style, std::uint32_t color, std::uint32_t hatch) {
    constexpr Qt::BrushStyle hatches[] = {Qt::HorPattern,   Qt::VerPattern,   Qt::FDiagPattern,
                                          Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    const Qt::BrushStyle kind = style == 1   ? Qt::NoBrush
                                : style == 2 ? hatches[std::min(hatch, 5U)]
                                             : Qt::SolidPattern;
    return {kind, colorOf(color)};
}

} // namespace tarsel::decoder
