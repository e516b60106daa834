// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/Color.h"
#include "pixels/Picture.h"

#include <QFont>
#include <QString>
#include <optional>

namespace tarsel::operations {

/// One line of text on a picture.
struct TextLine {
    QString text;
    QFont font; ///< as textFont makes it
    int x = 0;  ///< the anchor: on the text's top edge, at its left end, middle or right end
    int y = 0;
    int alignment = 0; ///< 0 left, 1 centre, 2 right
    double angle = 0;  ///< degrees counter-clockwise about the anchor
    Rgb color;
    std::optional<Rgb> background; ///< fills the box of the text's width and height
};

struct TextSize {
    int width = 0;
    int height = 0;
};

/// A font of `points` * 96 / 72 pixels, rounded, without hinting, so that text looks and measures alike on
/// every screen and without one. Fonts can be used only in a program with a QGuiApplication: error 5 else.
QFont textFont(const QString& family, double points, bool bold, bool italic, bool underline, bool smooth);

/// Advance width, and ascent plus descent, in pixels.
TextSize textSize(const QString& text, const QFont& font);

/// Draws the line; what is outside the picture is cut off.
void drawText(PixelView target, const TextLine& line);

} // namespace tarsel::operations
