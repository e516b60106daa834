// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// A folder, and the file in it where the user means one.
struct Place {
    QString folder; ///< empty for a path that doesn't exist
    QString file;   ///< complete path
};
/// Of an absolute path. This and what follows ask the file system, which may keep them waiting.
Place placeOf(const QString& path);

/// The folder itself, or the nearest one above it that exists.
QString nearestFolder(const QString& path);

/// The place that a user means by a typed path.
struct TypedPath {
    Place place;
    QString refusal; ///< what to say about a path that doesn't exist
};

/// `text` may be absolute, begin with "~" for the home folder, be relative to `current`, or be a file URL.
TypedPath typedPath(const QString& text, const QString& current);

/// "~" and "~/pictures" with the path of the home folder; other texts as they are.
QString withHomeFolder(const QString& text);

} // namespace tarsel
