// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/MetadataStore.h"
#include "imaging/fncLoadPicture.h"

namespace tarsel {

class ImageBox;

/// The EXIF orientation, 1 to 8; 1, which is upright, for data that hold none.
int exifOrientation(const MetadataStore& metadata);
/// The same of a picture file; 1 for a file that can't be read. Error 18 once a stop is requested.
int fileOrientation(const QString& path, const std::stop_token& stop = {});

int fileOrientation(const PictureFile& file, const std::stop_token& stop = {});

/// Whether width and height change places when a picture of that orientation is turned upright.
bool exchangesSides(int orientation);

/// The picture turned and mirrored from that orientation to upright.
Picture uprightPicture(const Picture& picture, int orientation);

/// Makes the metadata of a box say that its picture is upright; they lose the embedded thumbnail, which would
/// be seen turned. Nothing happens where they say so already.
void declareUpright(ImageBox& box);

/// Turns the picture that was loaded from `path` upright, and declares it.
void turnUpright(ImageBox& box, const QString& path);

/// What batch and preview do to a picture directly after loading it, so that a task list finds the same
/// pixels: turned upright when wanted, and laid on white, without transparency.
void prepareForTasks(ImageBox& box, const QString& path, bool upright);

/// fncLoadPicture of the upright picture. `sourceSize` is the size that the file has.
std::optional<Picture> loadUprightPicture(const QString& path, LoadMode mode, Size box,
                                          Color backColor = 0xFFFFFF, Size* sourceSize = nullptr);
std::optional<Picture> loadUprightPicture(const PictureFile& file, LoadMode mode, Size box, Color backColor,
                                          Size* sourceSize);

} // namespace tarsel
