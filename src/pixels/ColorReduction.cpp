// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/ColorReduction.h"

#include "pixels/ErrorDiffusion.h"
#include "pixels/Flatten.h"
#include "pixels/Luma.h"
#include "pixels/PaletteBuilder.h"

#include <algorithm>
#include <unordered_map>

namespace tarsel {

namespace {

constexpr std::uint8_t halfOpaque = 128;
constexpr int halfOfWhite = 128;

/// Which pixels are transparent by their alpha; empty when none is.
class HiddenPixels {
public:
    HiddenPixels(ConstPixelView view, bool isKept) {
        if (!isKept || view.channels == 3)
            return;
        m_mask.resize(std::size_t(view.width) * std::size_t(view.height));
        bool any = false;
        std::size_t at = 0;
        for (int y = 0; y < view.height; ++y)
            for (int x = 0; x < view.width; ++x, ++at) {
                m_mask[at] = view.pixel(x, y)[3] < halfOpaque;
                any = any || m_mask[at];
            }
        if (!any)
            m_mask.clear();
    }

    bool any() const { return !m_mask.empty(); }
    bool at(std::size_t pixel) const { return m_mask[pixel]; }

private:
    std::vector<bool> m_mask;
};

Rgb firstVisible(ConstPixelView view, const HiddenPixels& hidden) {
    std::size_t at = 0;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x, ++at)
            if (const std::uint8_t* pixel = view.pixel(x, y); !hidden.at(at))
                return {pixel[0], pixel[1], pixel[2]};
    return white;
}

/// Without alpha. Hidden pixels take the colour of a neighbour, so that they bring in no colour of their own.
Picture opaquePicture(const Picture& picture, const HiddenPixels& hidden) {
    const ConstPixelView view = picture.view();
    if (view.channels == 3 && !hidden.any())
        return picture;
    Picture opaque(view.width, view.height, 3);
    const PixelView target = opaque.edit();
    for (int y = 0; y < view.height; ++y)
        flattenRow(view, y, white, target.row(y));
    if (!hidden.any())
        return opaque;
    Rgb seen = firstVisible(target, hidden);
    std::size_t at = 0;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x, ++at) {
            std::uint8_t* pixel = target.pixel(x, y);
            if (!hidden.at(at))
                seen = {pixel[0], pixel[1], pixel[2]};
            pixel[0] = seen.red;
            pixel[1] = seen.green;
            pixel[2] = seen.blue;
        }
    return opaque;
}

std::vector<Rgb> graySteps(int levels) {
    std::vector<Rgb> palette;
    for (int i = 0; i < levels; ++i) {
        const auto gray = std::uint8_t((i * 255 * 2 + levels - 1) / (2 * (levels - 1)));
        palette.push_back({gray, gray, gray});
    }
    return palette;
}

void takeLuma(ConstPixelView source, IndexedPicture& target) {
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x)
            target.row(y)[x] = std::uint8_t(lumaOf(source.pixel(x, y)));
}

void takeThreshold(ConstPixelView source, IndexedPicture& target) {
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x)
            target.row(y)[x] = lumaOf(source.pixel(x, y)) >= halfOfWhite;
}

/// Each pixel's own colour, which the palette holds.
void takeColors(ConstPixelView source, IndexedPicture& target) {
    std::unordered_map<Color, std::uint8_t> indexes;
    for (std::size_t i = 0; i < target.palette.size(); ++i)
        indexes[colorOf(target.palette[i])] = std::uint8_t(i);
    Color last = -1;
    std::uint8_t index = 0;
    for (int y = 0; y < source.height; ++y)
        for (int x = 0; x < source.width; ++x) {
            const std::uint8_t* pixel = source.pixel(x, y);
            const Color color = colorOf({pixel[0], pixel[1], pixel[2]});
            if (color != last)
                index = indexes[last = color];
            target.row(y)[x] = index;
        }
}

void reduceToColors(ConstPixelView source, IndexedPicture& target, int most) {
    if (auto exact = distinctColors(source, most)) {
        target.palette = std::move(*exact);
        takeColors(source, target);
    } else {
        target.palette = buildPalette(source, most);
        diffuseColors(source, target);
    }
}

void reduceToGray(ConstPixelView source, IndexedPicture& target, ColorFormat format, int levels) {
    target.palette = graySteps(levels);
    if (format == ColorFormat::BlackAndWhite)
        takeThreshold(source, target);
    else if (levels == 256)
        takeLuma(source, target);
    else
        diffuseGray(source, target, levels);
}

void addTransparentIndex(IndexedPicture& target) {
    target.transparentIndex = int(target.palette.size());
    target.palette.push_back(white);
}

void hidePixels(IndexedPicture& target, const HiddenPixels& hidden) {
    addTransparentIndex(target);
    std::size_t at = 0;
    for (int y = 0; y < target.height(); ++y)
        for (int x = 0; x < target.width(); ++x, ++at)
            if (hidden.at(at))
                target.row(y)[x] = std::uint8_t(target.transparentIndex);
}

bool holds(const IndexedPicture& picture, Rgb color) {
    return std::ranges::find(picture.palette, color) != picture.palette.end();
}

bool holds(ConstPixelView view, Rgb color) {
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x)
            if (const std::uint8_t* pixel = view.pixel(x, y); color == Rgb{pixel[0], pixel[1], pixel[2]})
                return true;
    return false;
}

/// What has the colour becomes transparent, in the source or by the reduction.
void hideColor(ConstPixelView source, IndexedPicture& target, Rgb color) {
    if (target.transparentIndex < 0 && holds(target, color))
        target.transparentIndex = int(std::ranges::find(target.palette, color) - target.palette.begin());
    else if (target.transparentIndex < 0)
        addTransparentIndex(target);
    for (int y = 0; y < target.height(); ++y)
        for (int x = 0; x < target.width(); ++x) {
            const std::uint8_t* pixel = source.pixel(x, y);
            std::uint8_t& index = target.row(y)[x];
            if (color == Rgb{pixel[0], pixel[1], pixel[2]} || color == target.palette[index])
                index = std::uint8_t(target.transparentIndex);
        }
}

int bitsFor(std::size_t colors) {
    return colors <= 2 ? 1 : colors <= 16 ? 4 : 8;
}

/// `reserved` is 1 where an index is needed for what is transparent.
IndexedPicture reduced(ConstPixelView source, ColorFormat format, int reserved) {
    IndexedPicture target(source.width, source.height);
    switch (format) {
    case ColorFormat::TrueColor:
    case ColorFormat::Colors256:
        reduceToColors(source, target, 256 - reserved);
        break;
    case ColorFormat::Colors16:
        reduceToColors(source, target, 16 - reserved);
        break;
    case ColorFormat::Gray256:
        reduceToGray(source, target, format, 256 - reserved);
        break;
    case ColorFormat::Gray16:
        reduceToGray(source, target, format, 16);
        break;
    default:
        reduceToGray(source, target, format, 2);
    }
    return target;
}

/// The colour may be one that the user has picked from a picture with either palette: from the one with all
/// indexes, or from the one that leaves an index to what is transparent.
void hideColorOf(ConstPixelView source, IndexedPicture& target, ColorFormat format, Rgb color) {
    if (target.transparentIndex < 0 && !holds(target, color)) {
        IndexedPicture smaller = reduced(source, format, 1);
        if (!holds(smaller, color) && !holds(source, color))
            return;
        target = std::move(smaller);
    }
    hideColor(source, target, color);
}

/// With an alpha channel that hides the pixels of that colour; the picture itself when it has none of them.
Picture withHiddenColor(const Picture& picture, Rgb color) {
    const ConstPixelView view = picture.view();
    Picture result(view.width, view.height, 4);
    const PixelView target = result.edit();
    bool any = false;
    for (int y = 0; y < view.height; ++y)
        for (int x = 0; x < view.width; ++x) {
            const std::uint8_t* from = view.pixel(x, y);
            const bool isHidden = color == Rgb{from[0], from[1], from[2]};
            any = any || isHidden;
            const std::uint8_t alpha = view.channels == 4 ? from[3] : std::uint8_t(255);
            const std::uint8_t bytes[4] = {from[0], from[1], from[2], isHidden ? std::uint8_t(0) : alpha};
            std::copy_n(bytes, 4, target.pixel(x, y));
        }
    return any ? result : picture;
}

Picture inTrueColor(const Picture& picture, const Transparency& transparency) {
    if (!transparency.isKept)
        return opaquePicture(picture, HiddenPixels(picture.view(), false));
    return transparency.color ? withHiddenColor(picture, *transparency.color) : picture;
}

} // namespace

IndexedPicture reduceToPalette(const Picture& picture, ColorFormat format, const Transparency& transparency) {
    const HiddenPixels hidden(picture.view(), transparency.isKept);
    const Picture opaque = opaquePicture(picture, hidden);
    IndexedPicture target = reduced(opaque.view(), format, hidden.any() ? 1 : 0);
    if (hidden.any())
        hidePixels(target, hidden);
    if (transparency.isKept && transparency.color)
        hideColorOf(opaque.view(), target, format, *transparency.color);
    const bool hasColors = format <= ColorFormat::Colors256 || format == ColorFormat::Colors16;
    target.isGray = !hasColors && target.transparentIndex < 0;
    target.bits = format <= ColorFormat::Gray256 ? 8 : bitsFor(target.palette.size());
    return target;
}

EncodablePicture reduceColors(const Picture& picture, ColorFormat format, const Transparency& transparency) {
    if (format == ColorFormat::TrueColor)
        return inTrueColor(picture, transparency);
    return reduceToPalette(picture, format, transparency);
}

Picture withPaletteColors(const IndexedPicture& indexed) {
    const int channels = indexed.transparentIndex < 0 ? 3 : 4;
    Picture result(indexed.width(), indexed.height(), channels);
    const PixelView target = result.edit();
    for (int y = 0; y < indexed.height(); ++y)
        for (int x = 0; x < indexed.width(); ++x) {
            const int index = indexed.row(y)[x];
            const Rgb color = indexed.palette[std::size_t(index)];
            const std::uint8_t alpha = index == indexed.transparentIndex ? 0 : 255;
            const std::uint8_t bytes[4] = {color.red, color.green, color.blue, alpha};
            std::copy_n(bytes, channels, target.pixel(x, y));
        }
    return result;
}

} // namespace tarsel
