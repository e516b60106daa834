// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/Thumbnail.h"

#include "base/IgnoringErrors.h"
#include "codecs/PictureFile.h"
#include "collections/PictureHeaderReading.h"
#include "imaging/Upright.h"

#include <algorithm>

namespace tarsel {

namespace {

constexpr Color white = 0xFFFFFF;

std::optional<Thumbnail> fromHeader(const QString& path) {
    const std::optional<PictureHeader> header = readPictureHeader(path);
    if (!header)
        return std::nullopt;
    return Thumbnail{{}, {header->width, header->height}};
}

} // namespace

Size usableThumbnailSize(Size stored) {
    constexpr int smallest = 8;
    constexpr int largest = 300; // what users can choose
    constexpr Size usual{40, 40};
    if (stored.width < smallest || stored.height < smallest)
        return usual;
    return {std::min(stored.width, largest), std::min(stored.height, largest)};
}

std::optional<Thumbnail> loadThumbnail(const QString& path, std::optional<Size> box, bool upright) {
    if (!box)
        return fromHeader(path);
    std::optional<Thumbnail> thumbnail;
    // A damaged picture is one without a thumbnail, and no reason to end a listing.
    ignoringErrors([&] {
        if (const std::optional<PictureFile> file = openPicture(path))
            thumbnail = thumbnailOf(*file, *box, upright);
    });
    return thumbnail;
}

std::optional<Thumbnail> thumbnailOf(const PictureFile& file, Size box, bool upright) {
    Size sourceSize;
    const auto picture = upright ? loadUprightPicture(file, LoadMode::ExactBox, box, white, &sourceSize)
                                 : fncLoadPicture(file, LoadMode::ExactBox, box, white, &sourceSize);
    return picture ? std::optional(Thumbnail{*picture, sourceSize}) : std::nullopt;
}

Thumbnail makeThumbnail(const Picture& picture, std::optional<Size> box) {
    return {box ? ScalePicture(picture, LoadMode::ExactBox, *box, white) : Picture(),
            {picture.width(), picture.height()}};
}

int addIcon(ImageList& images, const Thumbnail& thumbnail) {
    return thumbnail.picture.isNull() ? -1 : images.add(QVariant::fromValue(thumbnail.picture));
}

Picture pictureAt(const ImageList& images, int index) {
    return images.at(index).value<Picture>();
}

} // namespace tarsel
