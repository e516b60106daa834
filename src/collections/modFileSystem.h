// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

/// Small path helpers. The separator is "/".
namespace tarsel::modFileSystem {

QString GetFileExtension(const QString& path); ///< after the last "." of the name; empty without one
QString GetFileTitle(const QString& path);     ///< before that "."; the full path without one
QString GetFolderPart(const QString& path);    ///< up to and including the last separator
/// Creates a folder, and those above it that are missing; one that exists stays. Raises 70, 76, 61.
void MakeFolder(const QString& path);
bool FileExistsByDir(const QString& path); ///< the path trimmed; false for an empty one
bool FolderExists(const QString& path);

} // namespace tarsel::modFileSystem
