// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QByteArray>
#include <functional>
#include <optional>

namespace tarsel {

/// What can be shown of a picture file before it is decoded in full.
struct QuickPicture {
    Picture picture;       ///< of the same proportions
    Size size;             ///< of the full picture
    QByteArray iccProfile; ///< of the pixels
};

/// How a quick picture of a file is found elsewhere; nothing where there is none.
using QuickPictureReader = std::function<std::optional<QuickPicture>(const PictureFile& file, bool upright)>;

/// The thumbnail in the file's EXIF data, without the bars that fill it up to its own proportions. Nothing
/// for a file without one.
std::optional<QuickPicture> embeddedThumbnail(const PictureFile& file, bool upright);

/// The picture decoded at least as large as it is drawn in `box`. Nothing where that is no faster than all
/// of it.
std::optional<QuickPicture> reducedPicture(const PictureFile& file, Size box, bool upright);

} // namespace tarsel
