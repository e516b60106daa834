// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QString>
#include <QStringList>

namespace tarsel {

/// The 25 naming tokens, ten separators and two counts, in the order in which the boxes offer them.
const QStringList& namingTokens();
const QStringList& namingSeparators();
const QStringList& namingCounts();

/// What a token needs to know for its text.
enum class TokenNeeds {
    Nothing,  ///< the text itself and the day
    Moment,   ///< the time of day: another text for each row
    File,     ///< size and dates of the source file
    Source,   ///< the size of the source picture
    Metadata, ///< EXIF and IPTC of the source picture
    Result    ///< the picture after its tasks
};
TokenNeeds tokenNeeds(const QString& token);

/// What the tokens are read from.
struct NamingFacts {
    int width = 0; ///< of the picture after its tasks
    int height = 0;
    QString sourceResolution; ///< "640x480"
    const MetadataStore& metadata;
    QString path;      ///< the source file
    QString extension; ///< of the file to be made
    const ImageBox* box = nullptr;
};

/// Text of one token into `result`, which keeps what stood in it when an error is raised.
void evaluateToken(const QString& token, const NamingFacts& facts, QString& result);

/// The text of one token for the picture in `box` and its source file; any other text stands for itself.
/// Errors are trapped as "fncRetrieveNamingString" and return what was known until then, mostly "";
/// `fault` then says why.
QString fncRetrieveNamingString(const ImageBox& box, const QString& token, const QString& path,
                                const QString& extension, QString* fault = nullptr);

/// "[WhiteSpace]" is a blank, "[No Separator]" nothing, anything else stands for itself.
QString fncRetrieveSeparator(const QString& text);

} // namespace tarsel
