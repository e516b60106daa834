// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/ImageBox.h"

#include <QString>
#include <QStringList>

namespace tarsel {

struct DateForms;

/// Characters of "EXIF - " and "IPTC - ", with which each line begins.
constexpr int metadataPrefixLength = 7;

/// The lines of metadata that an album page can have, in the order of their list.
const QStringList& metadataLines();

/// A line in the user's language. Baskets of metadata and pages have the line itself.
QString metadataLineInWords(const QString& line);

/// What the box says of a line; "" for an unknown one and for what is absent. Only the metadata count, so a
/// box without a picture serves as well.
QString fncRetrieveTagValue(const QString& tagName, const ImageBox& box, const DateForms& forms);
QString fncRetrieveEXIFTagValue(const QString& tagName, const ImageBox& box);
QString fncRetrieveIPTCTagValue(const QString& tagName, const ImageBox& box, const DateForms& forms);

} // namespace tarsel
