// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>

class QPalette;
class QWidget;

namespace tarsel {

/// Colour of texts that step back on the base of lists and fields. It is made of the roles that every theme
/// sets, and is as pale as stays easy to read: a contrast of 4.5 to the base, or that of the text itself.
QColor paleText(const QPalette& palette);

/// The ratio of two colours' luminances, from 1 to 21, as WCAG 2 defines it.
double contrastOf(const QColor& one, const QColor& other);

/// Shows the placeholder of a field in that colour, also after a change of the theme: themes without a
/// colour for placeholders leave them dark on dark.
void keepPlaceholderReadable(QWidget& field);

} // namespace tarsel
