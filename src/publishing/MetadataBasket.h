// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

/// Metadata basket files, .mbf: the lines of metadata chosen for an album, each in double quotes on a line of
/// its own that ends with CR LF, in the code page.
namespace tarsel::modSaveOpenImageList {

inline const QString metadataBasketExtension = QStringLiteral(".mbf");

/// Empties `list` and reads the file into it. The first and the last character of a line are dropped
/// unchecked. Error 5 for a line that is too short for that, or why the file can't be read; the lines before
/// stay.
void readMetadataBasket(const QString& path, QStringList& list);

/// readMetadataBasket for the window: false after an error, which is trapped as
/// "modSaveOpenImageList.fncOpenMetadataBasket".
bool fncOpenMetadataBasket(const QString& path, QStringList& list);

/// Writes the file and completes its path. False, and no file touched, for an empty list; false after an
/// error, which is trapped as "modSaveOpenImageList.fncSaveMetadataBasket".
bool fncSaveMetadataBasket(QString& path, const QStringList& list);

} // namespace tarsel::modSaveOpenImageList
