// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel {

/// The filters of a file dialog ("text|pattern|text|pattern") as Qt writes them: "text (*.a *.b)". A list of
/// patterns that the text itself names at its end is not repeated.
QStringList qtNameFilters(const QString& filter);

} // namespace tarsel
