// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/PictureParts.h"

#include "pixels/operations/Crop.h"
#include "pixels/operations/ResizeSmooth.h"

namespace tarsel {

Picture resizedTo(const Picture& picture, Size size) {
    if (size == Size{picture.width(), picture.height()})
        return picture;
    Picture target(size.width, size.height, picture.channels());
    operations::resizeSmooth(picture.view(), target.edit());
    return target;
}

Picture partOf(const Picture& picture, int left, int top, Size size) {
    if (size == Size{picture.width(), picture.height()})
        return picture;
    Picture part(size.width, size.height, picture.channels());
    operations::crop(picture.view(), part.edit(), left, top, {});
    return part;
}

} // namespace tarsel
