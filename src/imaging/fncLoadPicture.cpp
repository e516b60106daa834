// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/fncLoadPicture.h"

#include "base/IgnoringErrors.h"
#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/PictureFile.h"
#include "imaging/LoadingFailure.h"
#include "imaging/PictureParts.h"
#include "pixels/Flatten.h"
#include "pixels/operations/Fill.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

/// One file on its way to becoming a picture.
struct Request {
    const PictureFile& file;
    LoadMode mode;
    Size box;
    Color backColor;
};

struct Loaded {
    Picture picture;
    Size sourceSize;
    QString damage = {};
};

bool isMetafile(const QString& extension) {
    return extension == QLatin1String("wmf") || extension == QLatin1String("emf");
}

bool isOpenedDirectly(const QString& extension) {
    static const QStringList extensions = {
        QStringLiteral("tiff"), QStringLiteral("tif"), QStringLiteral("gif"), QStringLiteral("jpeg"),
        QStringLiteral("jpg"),  QStringLiteral("jpe"), QStringLiteral("png"), QStringLiteral("bmp"),
        QStringLiteral("emf"),  QStringLiteral("wmf")};
    return extensions.contains(extension);
}

/// Half way between two integers goes to the even one, as everywhere.
int roundHalfToEven(double value) {
    return int(std::nearbyint(value));
}

/// The largest size of the picture's proportions inside the box, at least 1 x 1.
Size largestInside(Size picture, Size box) {
    const double proportion = double(picture.width) / picture.height;
    const bool limitedByWidth = double(box.width) / box.height < proportion;
    const Size size = limitedByWidth ? Size{box.width, roundHalfToEven(box.width / proportion)}
                                     : Size{roundHalfToEven(box.height * proportion), box.height};
    return {std::clamp(size.width, 1, box.width), std::clamp(size.height, 1, box.height)};
}

/// How large the picture itself is drawn.
Size drawnSize(Size picture, LoadMode mode, Size box) {
    switch (mode) {
    case LoadMode::FitInside:
        return fitInside(picture, box);
    case LoadMode::ExactBox:
        return largestInside(picture, box);
    case LoadMode::FullSize:
        break;
    }
    return picture;
}

/// Lays the picture on a ground of the back colour, centred; transparency goes.
Picture centredOn(Size ground, const Picture& picture, Color backColor) {
    Picture target(ground.width, ground.height, 3);
    const PixelView to = target.edit();
    operations::fill(to, resolveColor(backColor));
    const int left = roundHalfToEven((ground.width - picture.width()) / 2.0);
    const int top = roundHalfToEven((ground.height - picture.height()) / 2.0);
    for (int y = 0; y < picture.height(); ++y)
        flattenRow(picture.view(), y, resolveColor(backColor), to.pixel(left, top + y));
    return target;
}

void requireBox(LoadMode mode, Size box) {
    if (mode != LoadMode::FullSize && (box.width < 1 || box.height < 1))
        fail(
            ErrorNumber::InvalidCall,
            QCoreApplication::translate("fncLoadPicture", "a box of %1 x %2").arg(box.width).arg(box.height));
}

Picture drawn(const Picture& picture, Size sourceSize, LoadMode mode, Size box, Color backColor) {
    const Picture fitted = resizedTo(picture, drawnSize(sourceSize, mode, box));
    const Size ground = mode == LoadMode::ExactBox ? box : Size{fitted.width(), fitted.height()};
    return centredOn(ground, fitted, backColor);
}

Loaded decodeFull(const Request& request) {
    DecodedPicture decoded = request.file.decode();
    const Size size{decoded.picture.width(), decoded.picture.height()};
    return {converted(decoded.picture, decoded.metadata.iccProfile), size, std::move(decoded.damage)};
}

/// At least as large as it will be drawn.
FittedPicture decodeForBox(const PictureFile& file, LoadMode mode, Size box) {
    ReducedPicture read = file.decodeReduced([&](PixelSize full) {
        const Size wanted = drawnSize({full.width, full.height}, mode, box);
        return PixelSize{wanted.width, wanted.height};
    });
    raiseIfStopped();
    return {converted(read.picture, read.metadata.iccProfile),
            {read.sourceSize.width, read.sourceSize.height}};
}

Loaded openFitted(const Request& request) {
    const FittedPicture read = decodeForBox(request.file, request.mode, request.box);
    return {drawn(read.picture, read.sourceSize, request.mode, request.box, request.backColor),
            read.sourceSize};
}

/// A picture with transparency shows the back colour where nothing covers it.
Loaded openOnBackColor(const Request& request) {
    Loaded loaded = decodeFull(request);
    if (loaded.picture.hasAlpha())
        loaded.picture = centredOn(loaded.sourceSize, loaded.picture, request.backColor);
    return loaded;
}

/// The common formats are laid on the back colour; at full size, all others are as the file holds them.
Loaded open(const Request& request, const QString& extension) {
    if (request.mode != LoadMode::FullSize)
        return openFitted(request);
    const bool isCommon = isOpenedDirectly(extension) && isOpenedDirectly(request.file.usualExtension());
    return isCommon ? openOnBackColor(request) : decodeFull(request);
}

} // namespace

Size fitInside(Size picture, Size box) {
    if (picture.width <= box.width && picture.height <= box.height)
        return picture;
    const auto widthFactor = float(double(box.width) / picture.width);
    const auto heightFactor = float(double(box.height) / picture.height);
    const Size fitted = widthFactor < heightFactor
                            ? Size{box.width, roundHalfToEven(double(widthFactor) * picture.height)}
                            : Size{roundHalfToEven(double(heightFactor) * picture.width), box.height};
    return {std::max(fitted.width, 1), std::max(fitted.height, 1)};
}

Size sizeInBox(Size picture, Size box) {
    return largestInside(picture, box);
}

FittedPicture loadFitted(const PictureFile& file, LoadMode mode, Size box) {
    requireBox(mode, box);
    FittedPicture read = decodeForBox(file, mode, box);
    read.picture = resizedTo(read.picture, drawnSize(read.sourceSize, mode, box));
    return read;
}

Picture drawInBox(const Picture& picture, Size sourceSize, Size box, Color backColor) {
    return drawn(picture, sourceSize, LoadMode::ExactBox, box, backColor);
}

Picture ScalePicture(const Picture& picture, LoadMode mode, Size box, Color backColor) {
    requireBox(mode, box);
    if (picture.isNull() || mode == LoadMode::FullSize)
        return picture;
    return drawn(picture, {picture.width(), picture.height()}, mode, box, backColor);
}

std::optional<PictureFile> openPicture(const QString& path) {
    try {
        return PictureFile(path);
    } catch (const TrappedError& error) {
        const auto number = error.number;
        if (number != ErrorNumber::FileNotFound && number != ErrorNumber::PathNotFound &&
            number != ErrorNumber::PermissionDenied)
            throw;
        logIgnored(error.description);
        return std::nullopt;
    }
}

std::optional<Picture> fncLoadPicture(const QString& path, LoadMode mode, Size box, Color backColor,
                                      Size* sourceSize, const std::stop_token& stop, QString* damage) {
    const StopScope scope(stop);
    requireBox(mode, box);
    raiseIfStopped();
    const std::optional<PictureFile> file = openPicture(path);
    return file ? fncLoadPicture(*file, mode, box, backColor, sourceSize, damage) : std::nullopt;
}

std::optional<Picture> fncLoadPicture(const PictureFile& file, LoadMode mode, Size box, Color backColor,
                                      Size* sourceSize, QString* damage) {
    requireBox(mode, box);
    const QString& path = file.name();
    const QString extension = QFileInfo(path).suffix().toLower();
    if (!file.isRecognised() && !isMetafile(extension))
        return std::nullopt;
    if (!file.isRecognised())
        failLoading(QCoreApplication::translate("fncLoadPicture", "%1: no reader for this format").arg(path));
    try {
        Loaded loaded = open({file, mode, box, backColor}, extension);
        if (sourceSize)
            *sourceSize = loaded.sourceSize;
        if (damage)
            *damage = loaded.damage;
        return std::move(loaded.picture);
    } catch (const TrappedError& error) {
        raiseIfStopped();
        failLoading(error);
    }
}

} // namespace tarsel
