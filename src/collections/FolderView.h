#pragma once

#include "collections/Basket.h"

namespace tarsel {

/// Headers of the folder list: text and SubItems 1 to 7.
QStringList folderHeaders();

/// File names of a folder that match the picture patterns, as the list shows them (each pattern has a "*"
/// behind its extension). Sub-folders are not listed. Error 76 for a missing folder, 70 for one that can't be
/// read.
QStringList pictureFiles(const QString& folder);

/// The list of the pictures in one folder.
class FolderView {
public:
    FolderView(CollectionLists lists, ThumbnailMaker thumbnails);

    CollectionSettings settings;
    /// Set by a tree click until the new listing has begun; a running listing stops at its next item.
    bool FolderChanging = false;

    /// Trapped as "FrmMain.subShowFilesInFolder".
    void subShowFilesInFolder(const QString& path);
    QString currentFolder() const { return m_folder; }

private:
    CollectionLists m_lists;
    ThumbnailMaker m_thumbnails;
    QString m_folder;
};

} // namespace tarsel
