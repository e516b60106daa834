// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// Folder and name, with a separator between them unless the folder ends with one.
QString joinedPath(const QString& folder, const QString& name);

/// Whether the file is in that folder itself, by the words of both paths: links are not followed.
bool isInFolder(const QString& path, const QString& folder);

/// Whether something has the name: a file, a folder, or a dangling link, which leads to a file elsewhere. A
/// new file can't be made there, or would be made in another place.
bool isNameTaken(const QString& path);

/// The free name under which a damaged file is kept beside: with ".damaged", and a number where that is
/// taken.
QString nameOfDamaged(const QString& path);

} // namespace tarsel
