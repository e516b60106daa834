// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QString>
#include <variant>
#include <vector>

namespace tarsel::decoder {

// What records of a metafile create and select for drawing. Lengths are in logical units.

struct GdiPen {
    enum Style { Solid, Dash, Dot, DashDot, DashDotDot, None, InsideFrame, UserStyle, Alternate };
    int style = Solid;
    double width = 0;
    QColor color = Qt::black;
    Qt::PenCapStyle cap = Qt::RoundCap;
    Qt::PenJoinStyle join = Qt::RoundJoin;
    std::vector<double> dashes = {}; ///< of UserStyle
};

struct GdiBrush {
    Qt::BrushStyle style = Qt::SolidPattern;
    QColor color = Qt::white;
    QImage pattern = {};        ///< of Qt::TexturePattern
    bool hasTextColors = false; ///< black of the pattern stands for the text's colour, white for its ground
};

struct GdiFont {
    enum class Kind { Sans, Serif, Mono };
    double height = 12; ///< of the letters without leading; of the line with it when `isLineHeight`
    double width = 0;   ///< mean of a letter; 0: the font's own
    double angle = 0;   ///< degrees, counter-clockwise
    bool isLineHeight = false;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isStruckOut = false;
    /// Letters stand for themselves; for Greek letters and mathematical signs; for accents of formulas.
    enum class Letters { Text, Symbols, Formula } letters = Letters::Text;
    Kind kind = Kind::Sans;
    int charset = 0; ///< of texts of bytes
};

struct GdiRegion {
    QPainterPath outline;
};

/// An empty one is a free place of the table, a palette one that nothing is drawn with.
struct GdiPalette {};
using GdiObject = std::variant<std::monostate, GdiPen, GdiBrush, GdiFont, GdiRegion, GdiPalette>;

/// As a logical font describes it: height, width, escapement in tenths of a degree, weight, style, character
/// set, pitch and family, face name.
struct LogicalFont {
    int height = 0;
    int width = 0;
    int escapement = 0;
    int weight = 0;
    int italic = 0;
    int underline = 0;
    int strikeOut = 0;
    int charset = 0;
    int pitchAndFamily = 0;
    QString face;
};
GdiFont fontOf(const LogicalFont& font);

/// Red in the low byte, then green, then blue.
QColor colorOf(std::uint32_t reference);

/// By the numbers of the pen styles: style in the low four bits, end caps 0x0F00, joins 0xF000.
GdiPen penOf(std::uint32_t style, double width, std::uint32_t color);

/// Style 0 solid, 1 none, 2 hatched; other styles come with a pattern.
GdiBrush brushOf(std::uint32_t style, std::uint32_t color, std::uint32_t hatch);

} // namespace tarsel::decoder
