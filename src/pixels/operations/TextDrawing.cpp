// SPDX-License-Identifier: GPL-3.0-or-later
#include "pixels/operations/TextDrawing.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace tarsel::operations {

namespace {

constexpr double pixelsPerPoint = 96.0 / 72;
constexpr int largestPixelSize = 10'000;

void requireFonts() {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance()))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("TextDrawing",
                                         "text needs fonts, and this program was started without them"));
}

/// The text's box, with the anchor at the origin.
QRect boxAtAnchor(const TextLine& line) {
    const TextSize size = textSize(line.text, line.font);
    const int left = line.alignment == 1   ? -int(std::nearbyint(size.width / 2.0))
                     : line.alignment == 2 ? -size.width
                                           : 0;
    return {left, 0, size.width, size.height};
}

QTransform placement(const TextLine& line) {
    QTransform transform;
    transform.translate(line.x, line.y);
    transform.rotate(-line.angle); // of QTransform, clockwise angles are positive
    return transform;
}

/// The pixels that the box and all ink, which may reach over it, can touch.
QRect touchedPixels(const TextLine& line, const QRect& box, const QRect& picture) {
    constexpr int smoothMargin = 2;
    const QFontMetrics metrics(line.font);
    const QRect ink = metrics.boundingRect(line.text).translated(box.left(), metrics.ascent());
    const QRectF reach = ink.united(box).adjusted(-smoothMargin, -smoothMargin, smoothMargin, smoothMargin);
    // Far outside, the limits of QRect must not turn the rectangle over.
    const QRectF mapped = placement(line).mapRect(reach).intersected(QRectF(picture));
    return mapped.isEmpty() ? QRect() : mapped.toAlignedRect();
}

/// The text alone, on transparent ground, for the pixels of `area`.
QImage paintedLine(const TextLine& line, const QRect& box, const QRect& area) {
    QImage layer(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (layer.isNull())
        fail(ErrorNumber::OutOfMemory,
             QCoreApplication::translate("TextDrawing", "no memory for drawing text"));
    layer.fill(Qt::transparent);
    QPainter painter(&layer);
    const bool smooth = !(line.font.styleStrategy() & QFont::NoAntialias);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    painter.setRenderHint(QPainter::TextAntialiasing, smooth);
    painter.setTransform(placement(line) * QTransform::fromTranslate(-area.left(), -area.top()));
    if (line.background)
        painter.fillRect(box, QColor(line.background->red, line.background->green, line.background->blue));
    painter.setFont(line.font);
    painter.setPen(QColor(line.color.red, line.color.green, line.color.blue));
    painter.drawText(QPoint(box.left(), QFontMetrics(line.font).ascent()), line.text);
    return layer;
}

/// Lays a premultiplied pixel over one of the picture.
void layOver(std::uint8_t* out, int channels, QRgb ink) {
    const int alpha = qAlpha(ink);
    const int colors[3] = {qRed(ink), qGreen(ink), qBlue(ink)};
    if (alpha == 0)
        return;
    if (channels == 3) {
        for (int c = 0; c < 3; ++c)
            out[c] = std::uint8_t(std::min(255, colors[c] + (out[c] * (255 - alpha) + 127) / 255));
        return;
    }
    const int below = (out[3] * (255 - alpha) + 127) / 255;
    const int sum = alpha + below;
    for (int c = 0; c < 3; ++c)
        out[c] = std::uint8_t(std::min(255, (colors[c] * 255 + out[c] * below + sum / 2) / sum));
    out[3] = std::uint8_t(sum);
}

} // namespace

QFont textFont(const QString& family, double points, bool bold, bool italic, bool underline, bool smooth) {
    requireFonts();
    QFont font;
    if (!family.isEmpty())
        font.setFamily(family);
    const double pixels = points > 0 ? points * pixelsPerPoint : 1;
    font.setPixelSize(int(std::clamp(std::nearbyint(pixels), 1.0, double(largestPixelSize))));
    font.setBold(bold);
    font.setItalic(italic);
    font.setUnderline(underline);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(smooth ? QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias)
                                 : QFont::NoAntialias);
    return font;
}

TextSize textSize(const QString& text, const QFont& font) {
    const QFontMetrics metrics(font);
    return {metrics.horizontalAdvance(text), metrics.height()};
}

void drawText(PixelView target, const TextLine& line) {
    requireFonts();
    const QRect box = boxAtAnchor(line);
    const QRect area = touchedPixels(line, box, {0, 0, target.width, target.height});
    if (area.isEmpty())
        return;
    const QImage layer = paintedLine(line, box, area);
    for (int y = 0; y < area.height(); ++y) {
        const auto* ink = reinterpret_cast<const QRgb*>(layer.constScanLine(y));
        std::uint8_t* out = target.pixel(area.left(), area.top() + y);
        for (int x = 0; x < area.width(); ++x, out += target.channels)
            layOver(out, target.channels, ink[x]);
    }
}

} // namespace tarsel::operations
