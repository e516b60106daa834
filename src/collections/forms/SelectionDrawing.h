// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/RubberBand.h"

class QPainter;
class QString;

namespace tarsel {

// Drawn over a picture in device pixels; `ratio` of them are one logical pixel.

constexpr int gripSide = 9; ///< logical pixels

/// The band on a picture that is drawn at `picture`: what is outside is dimmed, the line shows on light and
/// dark.
void drawBand(QPainter& painter, const RubberBand& band, const QRect& picture, double ratio);

/// A short text beside a point, inside `area`.
void drawTag(QPainter& painter, const QString& text, QPoint point, const QRect& area, double ratio);

} // namespace tarsel
