// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/Thumbnail.h"
#include "imaging/QuickPicture.h"

namespace tarsel {

/// loadThumbnail by way of the thumbnails that the programs of this desktop share in `folder`: a picture that
/// was seen before, here or in a file manager, is not decoded again. Files of this program, below
/// `privateFolder`, get none.
ThumbnailReader cachedThumbnails(const QString& folder, const QString& privateFolder);

/// The largest thumbnail that `folder` holds of a file.
QuickPictureReader storedPictures(const QString& folder);

} // namespace tarsel
