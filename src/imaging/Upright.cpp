// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/Upright.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "codecs/PictureFile.h"
#include "embedded/ExifBlock.h"
#include "imaging/ImageBox.h"
#include "pixels/Flatten.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/Rotate.h"

#include <utility>

namespace tarsel {

namespace {

constexpr int sharedPictureFormat = 7;
constexpr int uprightOrientation = 1;
constexpr int firstWithExchangedSides = 5;
constexpr int lastOrientation = 8;

/// How a picture of an orientation becomes upright: mirrored left and right first, then turned clockwise.
struct Turn {
    bool mirrored;
    int degrees;
};
constexpr Turn turns[lastOrientation + 1] = {{false, 0},  {false, 0},  {true, 0},  {false, 180}, {true, 180},
                                             {true, 270}, {false, 90}, {true, 90}, {false, 270}};

Picture mirrored(const Picture& picture) {
    Picture result(picture.width(), picture.height(), picture.channels());
    operations::flipHorizontal(picture.view(), result.edit());
    return result;
}

Picture onWhite(const Picture& picture) {
    Picture result(picture.width(), picture.height(), 3);
    const PixelView to = result.edit();
    for (int y = 0; y < picture.height(); ++y)
        flattenRow(picture.view(), y, white, to.row(y));
    return result;
}

QByteArray withoutThumbnail(const QByteArray& exif) {
    std::optional<ExifBlock> block = ExifBlock::read(exif);
    if (!block)
        return exif;
    block->dropThumbnail();
    return block->bytes();
}

Size exchanged(Size size) {
    return {size.height, size.width};
}

} // namespace

int exifOrientation(const MetadataStore& metadata) {
    bool isNumber = false;
    const int orientation = metadata.ExifValueByName(QStringLiteral("Orientation")).toInt(&isNumber);
    return isNumber && orientation >= uprightOrientation && orientation <= lastOrientation
               ? orientation
               : uprightOrientation;
}

int fileOrientation(const PictureFile& file, const std::stop_token& stop) {
    int orientation = uprightOrientation;
    ignoringErrors([&] { orientation = exifOrientation(MetadataStore(file.metadata(1, stop))); });
    raiseIfStopped(stop);
    return orientation;
}

int fileOrientation(const QString& path, const std::stop_token& stop) {
    int orientation = uprightOrientation;
    ignoringErrors([&] { orientation = fileOrientation(PictureFile(path), stop); });
    raiseIfStopped(stop);
    return orientation;
}

bool exchangesSides(int orientation) {
    return orientation >= firstWithExchangedSides;
}

Picture uprightPicture(const Picture& picture, int orientation) {
    const Turn turn = turns[orientation];
    const Picture facing = turn.mirrored ? mirrored(picture) : picture;
    return turn.degrees == 0 ? facing : operations::rotate(facing, turn.degrees, false, white);
}

void declareUpright(ImageBox& box) {
    if (exifOrientation(box.metadata()) == uprightOrientation)
        return;
    EmbeddedMetadata blocks = box.metadata().blocks();
    blocks.exif = withoutThumbnail(blocks.exif);
    box.metadata() = MetadataStore(std::move(blocks));
    box.ExifSet(QStringLiteral("Orientation"), QString::number(uprightOrientation));
}

void turnUpright(ImageBox& box, const QString& path) {
    const bool hasMetadata = !box.metadata().blocks().isEmpty();
    const int orientation = hasMetadata ? exifOrientation(box.metadata()) : fileOrientation(path);
    if (orientation == uprightOrientation)
        return;
    PixelSize full = box.FullSize();
    if (exchangesSides(orientation))
        std::swap(full.width, full.height);
    box.LoadFromMemory(uprightPicture(box.picture(), orientation), sharedPictureFormat);
    box.setFullSize(full);
    if (hasMetadata)
        declareUpright(box);
}

void prepareForTasks(ImageBox& box, const QString& path, bool upright) {
    if (upright)
        turnUpright(box, path);
    if (box.picture().hasAlpha())
        box.LoadFromMemory(onWhite(box.picture()), sharedPictureFormat);
}

std::optional<Picture> loadUprightPicture(const QString& path, LoadMode mode, Size box, Color backColor,
                                          Size* sourceSize) {
    const std::optional<PictureFile> file = openPicture(path);
    return file ? loadUprightPicture(*file, mode, box, backColor, sourceSize) : std::nullopt;
}

std::optional<Picture> loadUprightPicture(const PictureFile& file, LoadMode mode, Size box, Color backColor,
                                          Size* sourceSize) {
    const int orientation = fileOrientation(file, currentStop());
    const Size boxAsStored = exchangesSides(orientation) ? exchanged(box) : box;
    std::optional<Picture> picture = fncLoadPicture(file, mode, boxAsStored, backColor, sourceSize);
    if (picture && orientation != uprightOrientation)
        picture = uprightPicture(*picture, orientation);
    return picture;
}

} // namespace tarsel
