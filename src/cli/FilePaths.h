// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// A word of the command line as the path of a file: absolute, without "." and "..". UsageError for an empty
// word; error 76 for a relative path in a folder that was removed.
namespace tarsel::cli {

/// As it is; Qt may be unable to open it.
QString absolutePath(const QString& word);

/// A path by which Qt can read and write the file.
QString filePath(const QString& word);

/// The same of a folder, which Qt can make. UsageError for a missing one whose name isn't UTF-8.
QString folderPath(const QString& word);

/// UsageError for a file whose own name isn't UTF-8: what is to be saved beside it would be beside the link
/// by which it is read.
void requireUtf8FileName(const QString& word);

QString notUtf8Text(const QString& name);

} // namespace tarsel::cli
