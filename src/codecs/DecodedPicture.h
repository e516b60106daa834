// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureHeader.h"
#include "embedded/EmbeddedMetadata.h"
#include "pixels/Picture.h"

#include <QString>

namespace tarsel {

/// What a decoder returns: the picture and the metadata of its file.
struct DecodedPicture {
    Picture picture;
    EmbeddedMetadata metadata;
    QString damage =
        {}; ///< what is wrong with a file whose picture could be read in part; empty for an undamaged one
};

/// A picture decoded smaller than it is, and its own size. The rest is as of decode.
struct ReducedPicture {
    Picture picture;
    PixelSize sourceSize;
    EmbeddedMetadata metadata = {};
    QString damage = {};
};

} // namespace tarsel
