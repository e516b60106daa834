// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "collections/CollectionLists.h"
#include "collections/Thumbnail.h"
#include "collections/clsFileInfo.h"

#include <QStringList>

namespace tarsel {

/// Headers of the folder list: text and SubItems 1 to 7.
QStringList folderHeaders();
namespace FolderColumn {
enum : int {
    Resolution = 1,
    FileSize = 2,
    Pages = 3,
    Type = 4,
    DateCreated = 5,
    DateModified = 6,
    DateAccessed = 7,
};
} // namespace FolderColumn

// A row of the folder list is made in two steps, which any thread may do: from what the file system says, and
// from what the file holds.

/// The row of a file, complete but for resolution, picture and the pages of documents; in the thumbnail view
/// with the small picture of those still to come. `info` is changed as by every listing: its size text
/// follows the flag of the file before.
ListRow folderRow(const QString& folder, const QString& name, clsFileInfo& info,
                  const CollectionSettings& settings);

/// Name of the small picture that rows show where they have no thumbnail.
QString detailIcon();

/// What completes a row.
struct RowContent {
    bool isPicture = true; ///< false: in the thumbnail view such a file has no row
    QString resolution;
    QString pages;
    Picture thumbnail;
};
RowContent readRowContent(const QString& path, const CollectionSettings& settings,
                          const ThumbnailReader& readThumbnail);

} // namespace tarsel
