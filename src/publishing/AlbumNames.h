// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"

#include <QString>

namespace tarsel {

/// The names of an album's files. All of them are in the chosen folder and one folder in it.
class AlbumNames {
public:
    AlbumNames(const QString& folder, const QString& title);

    QString directory() const; ///< the name of the folder in the chosen one
    QString page(const QString& row) const;
    bool isPage(const QString& fileName) const; ///< of some row
    static QString picture(const QString& row);
    static QString thumbnail(const QString& row);

    // paths of them
    QString index() const;
    QString directoryPath() const;
    QString pagePath(const QString& row) const;
    QString inDirectory(const QString& fileName) const;
    /// The path of a file of the album from its folder on, and back.
    QString inFolder(const QString& path) const { return path.mid(m_folder.size()); }
    QString fromFolder(const QString& path) const { return m_folder + path; }

    /// Error 76 without a folder. Error 5 for a title, or a title of a row, that makes a name that can't be
    /// one of a file in its folder or that pages can't refer to, such as "../x".
    void requireUsable(const ListView& rows) const;

private:
    const QString m_folder; ///< with a separator at its end
    const QString m_title;
    const bool m_hasFolder;
};

} // namespace tarsel
