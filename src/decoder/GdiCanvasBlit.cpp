// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/GdiCanvas.h"

#include <algorithm>
#include <cmath>

namespace tarsel::decoder {

namespace {

// Ternary raster operations that occur; others with a source replace.
enum Operation : std::uint32_t {
    Blackness = 0x00000042,
    DestinationInverted = 0x00550009,
    SourceErase = 0x00440328,
    SourceInvert = 0x00660046,
    SourceAnd = 0x008800C6,
    SourcePaint = 0x00EE0086,
    MergePaint = 0x00BB0226,
    NotSourceCopy = 0x00330008,
    Nothing = 0x00AA0029,
    PatternCopy = 0x00F00021,
    PatternInvert = 0x005A0049,
    Whiteness = 0x00FF0062
};

QPainter::CompositionMode modeOf(std::uint32_t operation) {
    switch (operation) {
    case SourceErase:
        return QPainter::RasterOp_SourceAndNotDestination;
    case SourceInvert:
    case PatternInvert:
        return QPainter::RasterOp_SourceXorDestination;
    case SourceAnd:
        return QPainter::RasterOp_SourceAndDestination;
    case SourcePaint:
        return QPainter::RasterOp_SourceOrDestination;
    case MergePaint:
        return QPainter::RasterOp_NotSourceOrDestination;
    case NotSourceCopy:
        return QPainter::RasterOp_NotSource;
    case DestinationInverted:
        return QPainter::RasterOp_NotDestination;
    default:
        return QPainter::CompositionMode_SourceOver;
    }
}

/// Much smaller than it is: each pixel is the mean of those that it covers.
QImage reduced(const QImage& image, double width, double height) {
    const int toWidth = std::clamp(int(std::lround(width)), 1, image.width());
    const int toHeight = std::clamp(int(std::lround(height)), 1, image.height());
    if (toWidth * 2 > image.width() && toHeight * 2 > image.height())
        return image;
    return image.scaled(toWidth, toHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace

void GdiCanvas::blit(const GdiBlit& blit) {
    QPainterPath box;
    box.addRect(blit.target.normalized());
    const QPainterPath area = toImage(box);
    const QPainter::CompositionMode mode = modeOf(blit.operation);
    if (blit.operation == Nothing)
        return;
    if (mode != QPainter::CompositionMode_SourceOver)
        whiten(area.boundingRect());
    m_painter.setRenderHint(QPainter::Antialiasing, mode == QPainter::CompositionMode_SourceOver);
    m_painter.setCompositionMode(mode);
    if (blit.operation == Blackness || blit.operation == Whiteness)
        m_painter.fillPath(area, blit.operation == Blackness ? Qt::black : Qt::white);
    else if (blit.operation == PatternCopy || blit.operation == PatternInvert)
        fill(area, m_state.brush);
    else if (blit.operation == DestinationInverted)
        m_painter.fillPath(area, Qt::black);
    else if (!blit.image.isNull())
        drawImage(blit);
    m_painter.setRenderHint(QPainter::Antialiasing);
}

void GdiCanvas::drawImage(const GdiBlit& blit) {
    const QRect part = blit.source.toRect() & blit.image.rect();
    if (part.isEmpty() || blit.source.width() <= 0 || blit.source.height() <= 0)
        return;
    const double x = blit.target.width() / blit.source.width();
    const double y = blit.target.height() / blit.source.height();
    const QTransform map = transform();
    const double across = std::hypot(map.m11(), map.m12()) * std::abs(x) * part.width();
    const double down = std::hypot(map.m21(), map.m22()) * std::abs(y) * part.height();
    const QImage image = reduced(blit.image.copy(part), within(across), within(down));
    QTransform local(x, 0, 0, y, blit.target.x() + (part.x() - blit.source.x()) * x,
                     blit.target.y() + (part.y() - blit.source.y()) * y);
    local.scale(double(part.width()) / image.width(), double(part.height()) / image.height());
    m_painter.save();
    m_painter.setTransform(local * map);
    m_painter.setOpacity(blit.opacity / 255.0);
    m_painter.drawImage(QPointF(0, 0), image);
    m_painter.restore();
}

} // namespace tarsel::decoder
