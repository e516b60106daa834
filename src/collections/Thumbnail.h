// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/ListView.h"
#include "imaging/fncLoadPicture.h"

#include <functional>
#include <optional>

namespace tarsel {

class PictureFile;

/// A row's picture and the size of the file that it shows.
struct Thumbnail {
    Picture picture; ///< null where no thumbnails are made
    Size sourceSize;
};

/// A stored thumbnail size as it may be used: what a damaged record holds would leave the lists without
/// pictures, or take all memory.
Size usableThumbnailSize(Size stored);

/// The thumbnail of a file: fitted completely into the box, centred on white, turned by the EXIF orientation
/// when `upright`. Without a box the header alone is read. Nothing when the file can't be opened as a
/// picture. Any thread may call it.
std::optional<Thumbnail> loadThumbnail(const QString& path, std::optional<Size> box, bool upright = false);

/// The same of an open file. Errors 481 and 18.
std::optional<Thumbnail> thumbnailOf(const PictureFile& file, Size box, bool upright);

/// How the thumbnail of a file is read: by loadThumbnail, or by what stands in for it.
using ThumbnailReader =
    std::function<std::optional<Thumbnail>(const QString& path, std::optional<Size> box, bool upright)>;

/// The thumbnail of a picture in memory.
Thumbnail makeThumbnail(const Picture& picture, std::optional<Size> box);

/// Adds the thumbnail to a picture list and returns its index; -1 without a picture.
int addIcon(ImageList& images, const Thumbnail& thumbnail);

/// The picture at an index of a picture list; null when there is none.
Picture pictureAt(const ImageList& images, int index);

} // namespace tarsel
