// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace tarsel {

/// The place that a user means by a typed path.
struct TypedPath {
    QString folder;  ///< empty for a path that doesn't exist
    QString file;    ///< the complete path, when the path is that of a file in the folder
    QString refusal; ///< for such a path, what to say about it
};

/// `text` may be absolute, begin with "~" for the home folder, be relative to `current`, or be a file URL.
TypedPath typedPath(const QString& text, const QString& current);

/// "~" and "~/pictures" with the path of the home folder; other texts as they are.
QString withHomeFolder(const QString& text);

} // namespace tarsel
