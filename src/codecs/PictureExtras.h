// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel {

class PictureFile;

/// What a file has besides an opaque picture of 8 bits a channel.
struct PictureExtras {
    int frames = 1; ///< of an animation
    bool hasLayers = false;
    bool hasTransparency = false; ///< a channel or a colour for it, whether or not a pixel uses it
    bool isDeep = false;          ///< more bits a channel

    bool operator==(const PictureExtras&) const = default;
};

/// For BMP, GIF, PNG, PSD and TIFF (its first page); other formats have nothing of that. Of a damaged file,
/// what can be recognised. Pixels are not decoded. Errors as PictureSource::read.
PictureExtras pictureExtras(const PictureFile& file);

} // namespace tarsel
