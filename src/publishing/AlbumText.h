// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

/// The text of album pages: fixed fragments with places for values. Scripts and style sheets rely on every
/// character of them, so tags that don't balance and colours of five digits stay.
namespace tarsel::albumText {

enum class Part {
    IndexHead,
    Cell,
    RowEnd, ///< of the index: after the last cell of a row
    IndexEnd,
    PageHead,
    Caption,
    Link,
    Description,
    ExifHeading,
    IptcHeading,
    MetadataLine,
    PageEnd,
};

/// Values by the names of their places, in the form that they have on the page.
using Values = QHash<QByteArray, QByteArray>;

/// The fragments of a part, joined. Fails hard where a place has no value.
QByteArray filled(Part part, const Values& values);

/// A text between tags. Its bytes are those of the code page as long as the page, which says that it is in
/// windows-1250, shows them right; other characters, "&" and "<" are numeric references.
QByteArray text(const QString& value);
/// The same for a value between quotes.
QByteArray quotedText(const QString& value);

/// Part of a relative reference in an attribute. What a file name of any system can hold and what references
/// can carry stays as it is, blanks and umlauts included; the rest is percent-encoded.
QByteArray reference(const QString& fileName);

/// The decimal text of a colour as "#RRGGBB". Each channel is hexadecimal, but only numbers of decimal digits
/// are padded to two: red 10 is "#A0000". System colours are not resolved. Error 13 or 6 for another text.
QByteArray fncColorToHtml(const QString& color);

} // namespace tarsel::albumText
