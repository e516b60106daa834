#pragma once

#include "imaging/ImageBox.h"

#include <QString>
#include <QStringList>

namespace tarsel {

/// The 25 naming tokens, ten separators and two counts, in the order in which the boxes offer them.
const QStringList& namingTokens();
const QStringList& namingSeparators();
const QStringList& namingCounts();

/// The text of one token for the picture in `box` and its source file; any other text stands for itself.
/// Errors are trapped as "fncRetrieveNamingString" and give "".
QString fncRetrieveNamingString(const ImageBox& box, const QString& token, const QString& path,
                                const QString& extension);

/// "[WhiteSpace]" is a blank, "[No Separator]" nothing, anything else stands for itself.
QString fncRetrieveSeparator(const QString& text);

} // namespace tarsel
