// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// Shows texts in the language of the user's system where there is a file of them, such as
/// "tarsel-jpeg_de.qm", among the resources or in share/tarsel-jpeg/i18n next to the program's own folder.
/// For each new application object.
void installTranslation();

/// A sentence with a number. Translations hold all forms of their language under `many`, which contains "%n"
/// and is marked with QT_TRANSLATE_N_NOOP; in English, `one` is the sentence for 1.
QString countedText(const char* context, const char* one, const char* many, int count);

} // namespace tarsel
