// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel {

/// Shows texts in the first language of the user's system that is English or has a file of texts, such as
/// "tarsel-jpeg_de.qm", in share/tarsel-jpeg/i18n next to the program's own folder; Qt's own texts with them.
/// For each new application object.
void installTranslation();

/// The same for given languages, such as "de-AT", and a folder of files. Returns the installed file, or "".
QString installTranslation(const QStringList& languages, const QString& folder);

/// A sentence with a number. Translations hold all forms of their language under `many`, which contains "%n"
/// and is marked with QT_TRANSLATE_N_NOOP; in English, `one` is the sentence for 1.
QString countedText(const char* context, const char* one, const char* many, int count);

} // namespace tarsel
