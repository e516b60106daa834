// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/fncLoadPicture.h"

#include "base/Stop.h"
#include "base/TrappedError.h"
#include "codecs/Codec.h"
#include "codecs/ColorProfile.h"
#include "codecs/Flatten.h"
#include "pixels/operations/Fill.h"
#include "pixels/operations/ResizeSmooth.h"

#include <QFileInfo>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

/// One file on its way to becoming a picture.
struct Request {
    QString path;
    QString extension;
    PictureSource bytes;
    LoadMode mode;
    Size box;
    Color backColor;
};

struct Loaded {
    Picture picture;
    Size sourceSize;
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

/// Half way between two whole numbers goes to the even one, as everywhere.
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

Picture resized(const Picture& picture, Size size) {
    if (size == Size{picture.width(), picture.height()})
        return picture;
    Picture target(size.width, size.height, picture.channels());
    operations::resizeSmooth(picture.view(), target.edit());
    return target;
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
        fail(ErrorNumber::InvalidCall, QStringLiteral("a box of %1 x %2").arg(box.width).arg(box.height));
}

Picture drawn(const Picture& picture, Size sourceSize, LoadMode mode, Size box, Color backColor) {
    const Picture fitted = resized(picture, drawnSize(sourceSize, mode, box));
    const Size ground = mode == LoadMode::ExactBox ? box : Size{fitted.width(), fitted.height()};
    return centredOn(ground, fitted, backColor);
}

Loaded decodeSmall(const Codec& codec, const Request& request) {
    const PictureHeader header = codec.header(request.bytes, request.path);
    const Size wanted = drawnSize({header.width, header.height}, request.mode, request.box);
    ReducedPicture reduced = codec.decodeReduced(request.bytes, request.path, {wanted.width, wanted.height});
    return {converted(reduced.picture, reduced.iccProfile),
            {reduced.sourceSize.width, reduced.sourceSize.height}};
}

Loaded decodeWhole(const Codec& codec, const Request& request) {
    const DecodedPicture decoded = codec.decode(request.bytes, request.path, 1);
    Picture picture = converted(decoded.picture, decoded.metadata.iccProfile);
    return {picture, {picture.width(), picture.height()}};
}

Loaded openFitted(const Codec& codec, const Request& request) {
    Loaded loaded = codec.decodeReduced ? decodeSmall(codec, request) : decodeWhole(codec, request);
    raiseIfStopped();
    loaded.picture = drawn(loaded.picture, loaded.sourceSize, request.mode, request.box, request.backColor);
    return loaded;
}

/// A picture with transparency shows the back colour where nothing covers it.
Loaded openOnBackColor(const Codec& codec, const Request& request) {
    Loaded loaded = decodeWhole(codec, request);
    if (loaded.picture.hasAlpha())
        loaded.picture = centredOn(loaded.sourceSize, loaded.picture, request.backColor);
    return loaded;
}

/// The common formats, by content. Nothing when the file is of another format, or damaged; then
/// `damage` says why.
std::optional<Loaded> openDirectly(const Request& request, QString& damage) {
    const Codec* codec = codecForContent(request.bytes, request.path);
    if (!codec || !isOpenedDirectly(codec->extensions.first()))
        return std::nullopt;
    try {
        return request.mode == LoadMode::FullSize ? openOnBackColor(*codec, request)
                                                  : openFitted(*codec, request);
    } catch (const TrappedError& error) {
        raiseIfStopped();
        damage = error.description;
        return std::nullopt;
    }
}

[[noreturn]] void failLoading(const QString& fact) {
    throw TrappedError{ErrorNumber::InvalidPicture, QStringLiteral("Error loading picture ") + fact};
}

/// All others: by content, else by extension. At full size the pixels are as the file holds them.
Loaded openByFallback(const Request& request, const QString& damage) {
    if (!damage.isEmpty()) // the same decoder would meet the same damage
        failLoading(damage);
    const Codec* codec = codecForContent(request.bytes, request.path);
    if (!codec)
        codec = codecForExtension(request.extension);
    if (!codec)
        failLoading(request.path + QStringLiteral(": no reader for this format"));
    try {
        return request.mode == LoadMode::FullSize ? decodeWhole(*codec, request)
                                                  : openFitted(*codec, request);
    } catch (const TrappedError& error) {
        raiseIfStopped();
        failLoading(error.description);
    }
}

Loaded open(const Request& request) {
    QString damage;
    std::optional<Loaded> loaded;
    if (isOpenedDirectly(request.extension))
        loaded = openDirectly(request, damage);
    return loaded ? *std::move(loaded) : openByFallback(request, damage);
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

Picture ScalePicture(const Picture& picture, LoadMode mode, Size box, Color backColor) {
    requireBox(mode, box);
    if (picture.isNull() || mode == LoadMode::FullSize)
        return picture;
    return drawn(picture, {picture.width(), picture.height()}, mode, box, backColor);
}

/// Nothing for a file that can't be opened: its content is unknown.
static std::optional<PictureSource> sourceOf(const QString& path) {
    try {
        return PictureSource::ofFile(path);
    } catch (const TrappedError& error) {
        const auto number = error.number;
        if (number != ErrorNumber::FileNotFound && number != ErrorNumber::PathNotFound &&
            number != ErrorNumber::PermissionDenied)
            throw;
        return std::nullopt;
    }
}

std::optional<Picture> fncLoadPicture(const QString& path, LoadMode mode, Size box, Color backColor,
                                      Size* sourceSize, const std::stop_token& stop) {
    const StopScope scope(stop);
    requireBox(mode, box);
    raiseIfStopped();
    const std::optional<PictureSource> source = sourceOf(path);
    if (!source)
        return std::nullopt;
    const Request request{path, QFileInfo(path).suffix().toLower(), *source, mode, box, backColor};
    const bool known = isMetafile(request.extension) || codecForContent(request.bytes, path);
    if (!known)
        return std::nullopt;
    raiseIfStopped();
    Loaded loaded = open(request);
    if (sourceSize)
        *sourceSize = loaded.sourceSize;
    return std::move(loaded.picture);
}

} // namespace tarsel
