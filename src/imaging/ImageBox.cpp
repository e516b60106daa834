// SPDX-License-Identifier: GPL-3.0-or-later
#include "imaging/ImageBox.h"

#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "imaging/PicturePlacement.h"
#include "pixels/operations/Brightness.h"
#include "pixels/operations/Contrast.h"
#include "pixels/operations/Crop.h"
#include "pixels/operations/EllipseMask.h"
#include "pixels/operations/Flip.h"
#include "pixels/operations/GaussianBlur.h"
#include "pixels/operations/Merge.h"
#include "pixels/operations/Negative.h"
#include "pixels/operations/RedEye.h"
#include "pixels/operations/ResizeNearest.h"
#include "pixels/operations/ResizeSmooth.h"
#include "pixels/operations/Rotate.h"
#include "pixels/operations/Sharpen.h"
#include "pixels/operations/TextDrawing.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <utility>

namespace tarsel {

namespace {

constexpr int sharedPictureFormat = 7;
constexpr int neutralLevel = 50;

/// Runs an operation that keeps the size: in place, or into a new picture where the old one is shared, so
/// that no pixel is copied just to be overwritten.
template <class Operation>
void changePixels(Picture& picture, Operation operation) {
    if (!picture.isShared()) {
        const PixelView pixels = picture.edit();
        operation(pixels, pixels);
        return;
    }
    Picture result(picture.width(), picture.height(), picture.channels());
    operation(picture.view(), result.edit());
    picture = std::move(result);
}

template <class Operation>
void changeSize(Picture& picture, int width, int height, Operation operation) {
    if (width < 1 || height < 1)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "a picture can't get the size %1 x %2")
                 .arg(width)
                 .arg(height));
    if (width == picture.width() && height == picture.height())
        return;
    Picture result(width, height, picture.channels());
    operation(picture.view(), result.edit());
    picture = std::move(result);
}

int scaledLength(int length, double percent) {
    const double scaled = std::nearbyint(length * percent / 100);
    if (scaled > Picture::maximumPixels)
        fail(ErrorNumber::OutOfMemory,
             QCoreApplication::translate("ImageBox", "a scale of %1 percent is too large").arg(percent));
    return std::max(1, int(scaled));
}

void requireFormat(int format) {
    if (format != sharedPictureFormat)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "snapshots have no format %1").arg(format));
}

/// The part of a picture between the edges, of which some may be outside. Error 5 when there is nothing
/// between.
Picture cropped(const Picture& picture, const Edges& edges, Rgb background) {
    const std::int64_t width = std::int64_t(edges.right) - edges.left;
    const std::int64_t height = std::int64_t(edges.bottom) - edges.top;
    if (width < 1 || height < 1)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "empty crop rectangle: edges %1, %2 and %3, %4")
                 .arg(edges.left)
                 .arg(edges.top)
                 .arg(edges.right)
                 .arg(edges.bottom));
    if (height > Picture::maximumPixels / width)
        fail(ErrorNumber::OutOfMemory,
             QCoreApplication::translate("ImageBox", "a crop to %1 x %2 pixels").arg(width).arg(height));
    if (edges.left == 0 && edges.top == 0 && width == picture.width() && height == picture.height())
        return picture;
    Picture result(int(width), int(height), picture.channels());
    operations::crop(picture.view(), result.edit(), edges.left, edges.top, background);
    return result;
}

QFont fontOf(const TextFont& font, bool smooth) {
    return operations::textFont(font.Name, font.Size, font.Bold, font.Italic, font.Underline, smooth);
}

} // namespace

void ImageBox::requireImage() const {
    if (!HasImage())
        fail(ErrorNumber::InvalidCall, QCoreApplication::translate("ImageBox", "the box is empty"));
}

Picture& ImageBox::pictureToChange() {
    m_encoded.reset();
    m_fullSize.reset();
    return m_picture;
}

void ImageBox::Clear() {
    pictureToChange() = {};
    m_metadata = {};
    m_loadDamage.clear();
    ClearSelection();
}

Picture ImageBox::SaveToMemory(int format) const {
    requireImage();
    requireFormat(format);
    return m_picture;
}

void ImageBox::LoadFromMemory(const Picture& snapshot, int format) {
    requireFormat(format);
    if (snapshot.isNull())
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "the snapshot holds no picture"));
    pictureToChange() = snapshot;
}

void ImageBox::TakeLoaded(ImageBox&& loaded) {
    pictureToChange() = std::move(loaded.m_picture);
    m_fullSize = loaded.m_fullSize;
    m_metadata = std::move(loaded.m_metadata);
    m_loadDamage = std::move(loaded.m_loadDamage);
    m_loadFailed = loaded.m_loadFailed;
    ClearSelection();
}

void ImageBox::setPictureHandle(const PictureHandle& handle, const QString& damage) {
    pictureToChange() = handle;
    m_metadata = {};
    m_loadDamage = damage;
    ClearSelection();
}

// --- display

int ImageBox::DisplayWidth() const {
    return displaySize().width;
}

int ImageBox::DisplayHeight() const {
    return displaySize().height;
}

Size ImageBox::displaySize() const {
    const Size full{Width(), Height()};
    return StretchToFit ? stretchedSize(full, double(ControlWidth), double(ControlHeight)) : full;
}

Color ImageBox::PixelColor(int x, int y) const {
    requireImage();
    if (x < 0 || y < 0 || x >= Width() || y >= Height())
        fail(
            ErrorNumber::InvalidCall,
            QCoreApplication::translate("ImageBox", "the point %1, %2 is outside the picture").arg(x).arg(y));
    const std::uint8_t* pixel = m_picture.view().pixel(x, y);
    return colorOf(converted(Rgb{pixel[0], pixel[1], pixel[2]}, m_metadata.blocks().iccProfile));
}

Rgb ImageBox::inPicture(Color color) const {
    return converted(resolveColor(color), {}, m_metadata.blocks().iccProfile);
}

// --- tone and filters

void ImageBox::Brightness(int level, bool red, bool green, bool blue) {
    requireImage();
    const operations::ColorChannels channels{red, green, blue};
    if (level == neutralLevel || channels.none())
        return;
    changePixels(pictureToChange(), [&](ConstPixelView source, PixelView target) {
        operations::brightness(source, target, level, channels);
    });
}

void ImageBox::Contrast(int level, bool red, bool green, bool blue) {
    requireImage();
    const operations::ColorChannels channels{red, green, blue};
    if (level == neutralLevel || channels.none())
        return;
    changePixels(pictureToChange(), [&](ConstPixelView source, PixelView target) {
        operations::contrast(source, target, level, channels);
    });
}

void ImageBox::Sharpen(int level) {
    requireImage();
    changePixels(pictureToChange(), [&](ConstPixelView source, PixelView target) {
        operations::sharpen(source, target, level);
    });
}

void ImageBox::Blur(int level) {
    requireImage();
    changePixels(pictureToChange(), [&](ConstPixelView source, PixelView target) {
        operations::gaussianBlur(source, target, level);
    });
}

void ImageBox::Negative() {
    requireImage();
    changePixels(pictureToChange(), operations::negative);
}

// --- geometry

void ImageBox::Flip(int direction) {
    requireImage();
    if (direction != 0 && direction != 1)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "pictures can't be flipped in direction %1")
                 .arg(direction));
    changePixels(pictureToChange(), direction == 0 ? operations::flipHorizontal : operations::flipVertical);
}

void ImageBox::Rotate(float degrees) {
    requireImage();
    pictureToChange() = operations::rotate(m_picture, degrees, Resample, inPicture(BackColor));
}

void ImageBox::Resize(int width, int height) {
    requireImage();
    changeSize(pictureToChange(), width, height, operations::resizeSmooth);
}

void ImageBox::ResizeTo(int width, int height) {
    requireImage();
    changeSize(pictureToChange(), width, height,
               Resample ? operations::resizeSmooth : operations::resizeNearest);
}

void ImageBox::Scale(float percent) {
    requireImage();
    if (!(percent > 0))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "a scale of %1 percent").arg(double(percent)));
    changeSize(pictureToChange(), scaledLength(Width(), percent), scaledLength(Height(), percent),
               operations::resizeSmooth);
}

void ImageBox::Crop(int left, int top, int right, int bottom) {
    requireImage();
    pictureToChange() = cropped(m_picture, {left, top, right, bottom}, inPicture(BackColor));
}

// --- selection

namespace {

Edges sortedEdges(int x1, int y1, int x2, int y2) {
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

} // namespace

void ImageBox::SelectRectangle(int x1, int y1, int x2, int y2) {
    m_selectionShape = SelectionShape::Rectangle;
    m_selection = sortedEdges(x1, y1, x2, y2);
}

void ImageBox::SelectEllipse(int x1, int y1, int x2, int y2) {
    m_selectionShape = SelectionShape::Ellipse;
    m_selection = sortedEdges(x1, y1, x2, y2);
}

void ImageBox::ClearSelection() {
    m_selectionShape = SelectionShape::None;
    m_selection = {};
}

void ImageBox::requireSelection() const {
    requireImage();
    if (!SelectionActive || m_selectionShape == SelectionShape::None)
        fail(ErrorNumber::InvalidCall, QCoreApplication::translate("ImageBox", "nothing is selected"));
}

void ImageBox::RedEyeCorrection() {
    requireSelection();
    const auto [left, top, right, bottom] = m_selection;
    operations::correctRedEye(pictureToChange().edit(),
                              {left, top, right, bottom, m_selectionShape == SelectionShape::Ellipse});
}

void ImageBox::CropToSelection() {
    requireSelection();
    Picture result = cropped(m_picture, m_selection, inPicture(BackColor));
    if (m_selectionShape == SelectionShape::Ellipse)
        operations::fillOutsideEllipse(result.edit(), inPicture(BackColor));
    pictureToChange() = std::move(result);
    ClearSelection();
}

// --- text

int ImageBox::TextWidth(const QString& text) const {
    return operations::textSize(text, fontOf(Font, TextAntiAlias)).width;
}

int ImageBox::TextHeight(const QString& text) const {
    return operations::textSize(text, fontOf(Font, TextAntiAlias)).height;
}

void ImageBox::DrawText(int x, int y, const QString& text) {
    requireImage();
    operations::TextLine line{text,      fontOf(Font, TextAntiAlias), x, y, TextAlignment,
                              TextAngle, inPicture(TextColor),        {}};
    if (!TextTransparent)
        line.background = inPicture(TextBackColor);
    operations::drawText(pictureToChange().edit(), line);
}

// --- merging

void ImageBox::MergeHandle(const PictureHandle& handle) {
    mergeLayer(converted(handle, {}, m_metadata.blocks().iccProfile), inPicture(MergeTransparentColor));
}

void ImageBox::mergeLayer(const PictureHandle& handle, Rgb transparentColor) {
    requireImage();
    if (handle.isNull())
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "the picture to merge is empty"));
    if (MergeStyle < 0 || MergeStyle > 3)
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("ImageBox", "there is no merge style %1").arg(MergeStyle));
    operations::MergeOptions options{
        operations::MergePlace(MergeStyle), MergeX, MergeY, {}, MergeTransparency};
    if (MergeTransparent)
        options.transparentColor = transparentColor;
    // A reference of our own, for a box that is merged with itself.
    // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const PictureHandle layer = handle;
    operations::merge(pictureToChange().edit(), layer.view(), options);
}

SaveSettings ImageBox::saveSettings() const {
    return {.ColorFormat = ColorFormat,
            .JpegQuality = JpegQuality,
            .JpegEncoding = JpegEncoding,
            .GifCompression = GifCompression,
            .TiffCompression = TiffCompression,
            .BackColor = BackColor,
            .BackColorTransparent = BackColorTransparent};
}

} // namespace tarsel
