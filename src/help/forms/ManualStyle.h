// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPalette;
class QTextDocument;

namespace tarsel {

/// Gives a document made from Markdown the look of a printed manual, in the colours of the palette: room
/// round headings, tables with lines and a shaded head, code on a ground of its own.
void styleManual(QTextDocument& document, const QPalette& palette);

/// Whether texts are light on dark.
bool isDark(const QPalette& palette);

} // namespace tarsel
