// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/VisiblePart.h"

#include "imaging/DisplayColors.h"
#include "imaging/PictureParts.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tarsel {

namespace {

constexpr std::int64_t largePicture = 1'500'000;
constexpr int block = 16; ///< of a JPEG file with halved colour channels

std::int64_t pixelCount(Size size) {
    return std::int64_t(size.width) * size.height;
}

bool savesNoTime(Size part, const Picture& picture) {
    return pixelCount(part) > pixelCount({picture.width(), picture.height()}) / 2;
}

/// Of all that is embedded, colours alone count for what is seen.
EmbeddedMetadata colorsOf(const EmbeddedMetadata& metadata) {
    EmbeddedMetadata colors;
    colors.iccProfile = metadata.iccProfile;
    return colors;
}

} // namespace

QRect blocksAround(const QRect& pixels, const QRect& picture) {
    const auto down = [](int edge) { return edge / block * block; };
    const auto up = [](int edge) { return (edge + block - 1) / block * block; };
    const QRect inside = pixels.intersected(picture);
    const QPoint first(down(inside.left()), down(inside.top()));
    const QPoint end(up(inside.left() + inside.width()), up(inside.top() + inside.height()));
    return QRect(first, QSize(end.x() - first.x(), end.y() - first.y())).intersected(picture);
}

Picture aroundPart(Size size, const Picture& part, QPoint place) {
    constexpr std::uint8_t gray = 128;
    Picture result(size.width, size.height, part.channels());
    const PixelView target = result.edit();
    const ConstPixelView pixels = part.view();
    std::fill_n(target.data, std::ptrdiff_t(target.stride) * target.height, gray);
    for (int y = 0; y < pixels.height; ++y)
        std::copy_n(pixels.row(y), std::ptrdiff_t(pixels.width) * pixels.channels,
                    target.pixel(place.x(), place.y() + y));
    return result;
}

std::optional<PreviewPicture> VisiblePart::roundTrip(const RoundTripSource& source,
                                                     const RoundTripSettings& settings,
                                                     const VisibleArea& visible) {
    const Size size{source.picture.width(), source.picture.height()};
    const bool isSearched = settings.budget.bytes > 0; // what the complete picture needs isn't known yet
    if (pixelCount(size) < largePicture || pixelCount(visible.pane) < 1 || isSearched)
        return std::nullopt;
    return visible.isFitted ? fitted(source, settings, visible.pane) : cut(source, settings, visible.pixels);
}

std::optional<PreviewPicture> VisiblePart::fitted(const RoundTripSource& source,
                                                  const RoundTripSettings& settings, Size pane) {
    const Picture& reduced = m_reduced.of(source.picture, pane);
    if (savesNoTime({reduced.width(), reduced.height()}, source.picture))
        return std::nullopt;
    RoundTripResult result = tarsel::roundTrip({reduced, colorsOf(source.metadata)}, settings);
    if (result.decoded.isNull())
        return std::nullopt;
    PreviewPicture shown;
    shown.picture = std::move(result.decoded);
    shown.size = {source.picture.width(), source.picture.height()};
    shown.iccProfile = visibleProfile(result.iccProfile);
    shown.isReduced = true;
    return shown;
}

std::optional<PreviewPicture> VisiblePart::cut(const RoundTripSource& source,
                                               const RoundTripSettings& settings, const QRect& pixels) {
    const QRect all(0, 0, source.picture.width(), source.picture.height());
    const QRect area = blocksAround(pixels, all);
    if (area.isEmpty() || savesNoTime({area.width(), area.height()}, source.picture))
        return std::nullopt;
    const Picture part = partOf(source.picture, area.left(), area.top(), {area.width(), area.height()});
    const RoundTripResult result = tarsel::roundTrip({part, colorsOf(source.metadata)}, settings);
    if (result.decoded.isNull())
        return std::nullopt;
    PreviewPicture shown;
    shown.picture = aroundPart({all.width(), all.height()}, result.decoded, area.topLeft());
    shown.size = {all.width(), all.height()};
    shown.iccProfile = visibleProfile(result.iccProfile);
    return shown;
}

} // namespace tarsel
