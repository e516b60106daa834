// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QByteArray>
#include <optional>

namespace tarsel {

/// What can be shown of a picture file before it is decoded in full.
struct QuickPicture {
    Picture picture;       ///< of the same proportions
    Size size;             ///< of the full picture
    QByteArray iccProfile; ///< of the pixels
};

/// The thumbnail in the file's EXIF data, without the bars that fill it up to its own proportions. Nothing
/// for a file without one.
std::optional<QuickPicture> embeddedThumbnail(const PictureFile& file, bool upright);

/// The picture decoded at least as large as it is drawn in `box`. Nothing where that is no faster than all
/// of it.
std::optional<QuickPicture> reducedPicture(const PictureFile& file, Size box, bool upright);

} // namespace tarsel
