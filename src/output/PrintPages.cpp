// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/PrintPages.h"

#include "base/TrappedError.h"
#include "codecs/Resolution.h"
#include "imaging/DisplayColors.h"
#include "imaging/ImageBox.h"
#include "imaging/PictureParts.h"

#include <QCoreApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <algorithm>
#include <cmath>

namespace tarsel {

namespace {

constexpr double mmPerInch = 25.4;
constexpr double mostDotsPerMm = 600 / mmPerInch;
constexpr double captionGap = 1; // mm
constexpr double textSize = 3.2;

[[noreturn]] void failPrinting() {
    fail(ErrorNumber::InvalidCall,
         QCoreApplication::translate("PrintPages", "the printer doesn't take the pages"));
}

/// Of pixels that stand for more.
QRect scaledCrop(const QRect& crop, const PrintPicture& picture) {
    const double across = double(picture.picture.width()) / picture.pixels.width();
    const double down = double(picture.picture.height()) / picture.pixels.height();
    const QRect all(0, 0, picture.picture.width(), picture.picture.height());
    const QRect scaled =
        QRectF(crop.x() * across, crop.y() * down, crop.width() * across, crop.height() * down)
            .toRect()
            .intersected(all);
    return scaled.isEmpty() ? all : scaled;
}

/// The pixels to draw, not more than dots.
Picture pixelsFor(const PrintPicture& picture, const PlacedPicture& placed, double dotsPerMm) {
    const QRect crop = scaledCrop(placed.crop, picture);
    const double density = std::min(dotsPerMm, mostDotsPerMm);
    const auto pixels = [&](double length, int there) {
        return std::clamp(int(std::ceil(length * density)), 1, there);
    };
    const Size size{pixels(placed.place.width(), crop.width()), pixels(placed.place.height(), crop.height())};
    const Picture part = partOf(picture.picture, crop.left(), crop.top(), {crop.width(), crop.height()});
    return inDisplayColors(resizedTo(part, size), picture.iccProfile);
}

QImage imageOn(const Picture& picture) {
    const ConstPixelView view = picture.view();
    const auto format = picture.hasAlpha() ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
    return {view.data, view.width, view.height, view.stride, format};
}

QRectF inDots(const QRectF& area, double dotsPerMm) {
    return {area.topLeft() * dotsPerMm, area.size() * dotsPerMm};
}

/// A name stays on its line, a description goes on to the next one.
void drawCaption(QPainter& painter, double dotsPerMm, const QRectF& area, const PrintLayout& layout,
                 const QString& text) {
    QFont font = painter.font();
    font.setPixelSize(std::max(1, int(std::lround(textSize * dotsPerMm))));
    const QRectF lines = inDots(area.adjusted(0, captionGap, 0, 0), dotsPerMm);
    const QFontMetricsF metrics(font, painter.device());
    const bool isName = layout.caption == PrintLayout::Name;
    const QString shown = isName ? metrics.elidedText(text, Qt::ElideMiddle, lines.width()) : text;
    painter.save();
    painter.setFont(font);
    painter.setPen(Qt::black);
    painter.setClipRect(lines);
    painter.drawText(lines, Qt::AlignHCenter | Qt::AlignTop | (isName ? 0 : int(Qt::TextWordWrap)), shown);
    painter.restore();
}

/// For the resolution across, which printers and files rarely have different from that down.
double dpiOf(const ImageBox& box) {
    return resolutionOf(box.metadata().blocks()).horizontal;
}

} // namespace

PrintPicture printPictureOf(const ImageBox& box, const QString& caption) {
    const PixelSize full = box.FullSize();
    return {box.picture(), visibleProfile(box.metadata()), {full.width, full.height}, dpiOf(box), caption};
}

PrintPicture reducedTo(const PrintPicture& picture, int side) {
    PrintPicture reduced = picture;
    const QSize size(picture.picture.width(), picture.picture.height());
    const QSize smaller = size.scaled(side, side, Qt::KeepAspectRatio).expandedTo({1, 1});
    if (smaller.width() < size.width())
        reduced.picture = resizedTo(picture.picture, {smaller.width(), smaller.height()});
    reduced.picture = inDisplayColors(reduced.picture, picture.iccProfile);
    reduced.iccProfile.clear();
    return reduced;
}

/// A picture in its true size rarely has more pixels than are drawn.
PixelSize pixelsDrawn(const PrintLayout& layout, const std::vector<QRectF>& places, PixelSize pixels) {
    if (layout.sizing == PrintLayout::TrueSize)
        return pixels;
    const PlacedPicture placed =
        placedPicture(layout, places.front(), {pixels.width, pixels.height}, usualDpi);
    const auto drawn = [](double length, int shown, int all) {
        return int(std::min<double>(all, std::ceil(length * mostDotsPerMm) / shown * all + 1));
    };
    return {drawn(placed.place.width(), placed.crop.width(), pixels.width),
            drawn(placed.place.height(), placed.crop.height(), pixels.height)};
}

void drawOnPage(QPainter& painter, double dotsPerMm, const PrintLayout& layout,
                const std::vector<QRectF>& places, const PrintPicture& picture) {
    Picture pixels; // the same for all places, which are of one size
    QImage image;
    for (const QRectF& place : places) {
        const PlacedPicture placed = placedPicture(layout, place, picture.pixels, picture.dpi);
        if (placed.place.isEmpty())
            continue;
        if (pixels.isNull()) {
            pixels = pixelsFor(picture, placed, dotsPerMm);
            image = imageOn(pixels);
        }
        painter.drawImage(inDots(placed.place, dotsPerMm), image);
        if (!placed.caption.isEmpty() && !picture.caption.isEmpty())
            drawCaption(painter, dotsPerMm, placed.caption, layout, picture.caption);
    }
}

QPageLayout sheetOf(const PrintLayout& layout) {
    const bool isNamed = layout.paper != PrintLayout::printersPaper;
    const QPageSize size(isNamed ? QPageSize::PageSizeId(layout.paper) : QPageSize::A4);
    return {size, layout.landscape ? QPageLayout::Landscape : QPageLayout::Portrait, {}};
}

Paper paperOf(const QPageLayout& sheet) {
    QPageLayout page = sheet;
    page.setUnits(QPageLayout::Millimeter);
    return {page.fullRect().size(), page.minimumMargins()};
}

PrintPages::PrintPages(QPagedPaintDevice& device, const PrintLayout& layout, const Paper& paper) :
    m_device(device), m_layout(layout), m_places(pagePlaces(layout, paper)),
    m_dotsPerMm(device.logicalDpiX() / mmPerInch) {}

void PrintPages::beginPage() {
    if (m_painter.isActive() ? !m_device.newPage() : !m_painter.begin(&m_device))
        failPrinting();
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

void PrintPages::add(const PrintPicture& picture) {
    const int place = m_count % m_layout.picturesOnPage();
    if (place == 0)
        beginPage();
    ++m_count;
    if (m_layout.repeats)
        drawOnPage(m_painter, m_dotsPerMm, m_layout, m_places, picture);
    else
        drawOnPage(m_painter, m_dotsPerMm, m_layout, {m_places[std::size_t(place)]}, picture);
}

void PrintPages::finish() {
    if (m_painter.isActive() && !m_painter.end())
        failPrinting();
}

} // namespace tarsel
