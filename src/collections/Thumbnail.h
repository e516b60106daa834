// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/CollectionLists.h"

#include <optional>

namespace tarsel {

/// A row's picture and the size of the file that it shows.
struct Thumbnail {
    QVariant icon; ///< invalid where no thumbnails are made
    Size sourceSize;
};

/// The thumbnail of a file: fitted whole into the box, centred on white. Without a maker the header alone is
/// read. Nothing when the file can't be opened as a picture.
std::optional<Thumbnail> loadThumbnail(const QString& path, Size box, const ThumbnailMaker& maker,
                                       bool upright);

/// The thumbnail of a picture in memory.
Thumbnail makeThumbnail(const Picture& picture, Size box, const ThumbnailMaker& maker);

/// Adds the thumbnail's icon to a picture list and gives its index; -1 when there is no icon.
int addIcon(ImageList& images, const Thumbnail& thumbnail);

} // namespace tarsel
