// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/QuickPicture.h"

#include "codecs/PictureFile.h"
#include "embedded/ExifBlock.h"
#include "imaging/PictureParts.h"
#include "imaging/Upright.h"

#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr int largestThumbnail = 1024;
/// Of the proportions of thumbnail and picture: beyond it the thumbnail shows something else.
constexpr double largestDifference = 1.6;

/// The middle of the picture, in these proportions.
Picture middleOf(const Picture& picture, Size proportions) {
    const double wanted = double(proportions.width) / proportions.height;
    const int width = std::clamp(int(std::lround(picture.height() * wanted)), 1, picture.width());
    const int height = std::clamp(int(std::lround(picture.width() / wanted)), 1, picture.height());
    return partOf(picture, (picture.width() - width) / 2, (picture.height() - height) / 2, {width, height});
}

bool showsAnother(const Picture& thumbnail, Size full) {
    const double difference =
        double(thumbnail.width()) / thumbnail.height() * full.height / std::max(full.width, 1);
    return difference > largestDifference || difference < 1 / largestDifference;
}

QuickPicture turned(QuickPicture quick, int orientation) {
    quick.picture = uprightPicture(quick.picture, orientation);
    if (exchangesSides(orientation))
        std::swap(quick.size.width, quick.size.height);
    return quick;
}

int orientationOf(const EmbeddedMetadata& metadata, bool upright) {
    return upright ? exifOrientation(MetadataStore(metadata)) : 1;
}

Size sizeOf(const PictureFile& file) {
    const PictureHeader header = file.header();
    return {header.width, header.height};
}

} // namespace

std::optional<QuickPicture> embeddedThumbnail(const PictureFile& file, bool upright) {
    const EmbeddedMetadata metadata = file.metadata();
    const std::optional<ExifBlock> exif = ExifBlock::read(metadata.exif);
    const QByteArray bytes = exif ? exif->thumbnail() : QByteArray();
    if (bytes.isEmpty())
        return std::nullopt;
    const PictureFile embedded(bytes, file.name());
    const Size own = sizeOf(embedded);
    const Size full = sizeOf(file);
    if (own.width > largestThumbnail || own.height > largestThumbnail)
        return std::nullopt;
    const Picture thumbnail = embedded.decode().picture;
    if (showsAnother(thumbnail, full))
        return std::nullopt;
    return turned({middleOf(thumbnail, full), full, {}}, orientationOf(metadata, upright));
}

std::optional<QuickPicture> reducedPicture(const PictureFile& file, Size box, bool upright) {
    // The other formats are decoded in full, or drawn at any size.
    if (file.usualExtension() != QLatin1String("jpg"))
        return std::nullopt;
    const int orientation = orientationOf(upright ? file.metadata() : EmbeddedMetadata{}, upright);
    if (exchangesSides(orientation))
        std::swap(box.width, box.height);
    ReducedPicture reduced = file.decodeReduced([&](PixelSize full) {
        const Size wanted = fitInside({full.width, full.height}, box);
        return PixelSize{wanted.width, wanted.height};
    });
    const Size full{reduced.sourceSize.width, reduced.sourceSize.height};
    return turned({std::move(reduced.picture), full, std::move(reduced.metadata.iccProfile)}, orientation);
}

} // namespace tarsel
