// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CollectionLists.h"
#include "collections/PictureFiles.h"

#include <QStringList>

namespace tarsel {

/// Headers of the folder list: text and SubItems 1 to 7.
QStringList folderHeaders();
namespace FolderColumn {
constexpr int Resolution = 1;
constexpr int FileSize = 2;
constexpr int Pages = 3;
constexpr int Type = 4;
constexpr int DateCreated = 5;
constexpr int DateModified = 6;
constexpr int DateAccessed = 7;
} // namespace FolderColumn

/// The list of the pictures in one folder. Rows of the thumbnail view have the index of their thumbnail in
/// ilFolder as icon; rows of the detail view have none, and show the small picture named by their icon key.
class FolderView {
public:
    FolderView(CollectionLists lists, ThumbnailMaker thumbnails);

    CollectionSettings settings;
    /// Set by a tree click until the new listing has begun; a running listing stops at its next item.
    bool FolderChanging = false;

    /// Lists a folder, row by row. In the thumbnail view a picture that can't be read gets no row. A folder
    /// that can't be read leaves the list empty. Trapped as "FrmMain.subShowFilesInFolder".
    void subShowFilesInFolder(const QString& path);
    void cmdDetailFolder();    ///< to the detail view
    void cmdThumbnailFolder(); ///< back; lists anew when there are no thumbnails
    QString currentFolder() const { return m_folder; }

private:
    void clearList();
    void listFiles(const QString& folder, const QStringList& names);
    void addFile(const QString& path, const QString& name);
    bool addPictureFacts(ListRow& row, const QString& extension);

    CollectionLists m_lists;
    ThumbnailMaker m_thumbnails;
    QString m_folder;
};

} // namespace tarsel
