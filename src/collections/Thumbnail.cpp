// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Thumbnail.h"

#include "base/ErrorTrap.h"
#include "collections/PictureHeaderReading.h"
#include "imaging/Upright.h"

namespace tarsel {

namespace {

constexpr Color White = 0xFFFFFF;

std::optional<Thumbnail> fromHeader(const QString& path) {
    const std::optional<PictureHeader> header = readPictureHeader(path);
    if (!header)
        return std::nullopt;
    return Thumbnail{{}, {header->width, header->height}};
}

} // namespace

std::optional<Thumbnail> loadThumbnail(const QString& path, Size box, const ThumbnailMaker& maker,
                                       bool upright) {
    if (!maker)
        return fromHeader(path);
    std::optional<Thumbnail> thumbnail;
    // A damaged picture is one without a thumbnail, and no reason to end a listing.
    ignoringErrors([&] {
        Size sourceSize;
        if (const auto picture = upright
                                     ? loadUprightPicture(path, LoadMode::ExactBox, box, White, &sourceSize)
                                     : fncLoadPicture(path, LoadMode::ExactBox, box, White, &sourceSize))
            thumbnail = Thumbnail{maker(*picture), sourceSize};
    });
    return thumbnail;
}

Thumbnail makeThumbnail(const Picture& picture, Size box, const ThumbnailMaker& maker) {
    const Size sourceSize{picture.width(), picture.height()};
    if (!maker)
        return {{}, sourceSize};
    return {maker(ScalePicture(picture, LoadMode::ExactBox, box, White)), sourceSize};
}

int addIcon(ImageList& images, const Thumbnail& thumbnail) {
    return thumbnail.icon.isValid() ? images.add(thumbnail.icon) : -1;
}

} // namespace tarsel
