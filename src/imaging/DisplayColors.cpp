// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/DisplayColors.h"

#include "codecs/ColorProfile.h"
#include "pixels/operations/ResizeSmooth.h"

namespace tarsel {

Picture inDisplayColors(const Picture& picture, const MetadataStore& metadata) {
    return converted(picture, metadata.blocks().iccProfile);
}

Picture forDisplay(const Picture& picture, const MetadataStore& metadata, Size limit) {
    const Size full{picture.width(), picture.height()};
    const Size size = fitInside(full, limit);
    if (size == full)
        return inDisplayColors(picture, metadata);
    Picture reduced(size.width, size.height, picture.channels());
    operations::resizeSmooth(picture.view(), reduced.edit());
    return inDisplayColors(reduced, metadata);
}

} // namespace tarsel
