// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/forms/PictureImage.h"

namespace tarsel {

QImage imageOf(const Picture& picture) {
    if (picture.isNull())
        return {};
    auto* held = new Picture(picture);
    const ConstPixelView pixels = held->view();
    const auto format = pixels.channels == 4 ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
    return QImage(
        pixels.data, pixels.width, pixels.height, pixels.stride, format,
        [](void* holder) { delete static_cast<Picture*>(holder); }, held);
}

QPixmap pixmapOf(const QVariant& picture) {
    return QPixmap::fromImage(imageOf(picture.value<Picture>()));
}

} // namespace tarsel
