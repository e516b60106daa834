// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace tarsel {

/// Names of a folder's files that match the pattern of pictures, "*.jpg*;*.jpeg*;..", in any case, sorted
/// without regard to case. Sub-folders and hidden files are not listed. The file `also` is, whatever its
/// name, when it is a picture by its content. Error 76 for a missing folder, 70 for one that can't be read.
QStringList pictureFiles(const QString& folder, const QString& also = {});

/// Whether a name matches that pattern.
bool isPictureName(const QString& name);
/// The order of those names.
bool standsBefore(const QString& a, const QString& b);

/// Whether a file of that extension, in any case, may hold several pages.
bool mayHavePages(const QString& extension);

} // namespace tarsel
