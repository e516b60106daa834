// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/GdiCanvas.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tarsel::decoder {

namespace {

constexpr std::size_t maxSaved = 1000;
constexpr double farAway = 1e5; // pixels; beyond what can be seen at any size

double ratio(double part, double total) {
    return total == 0 ? 1 : part / total;
}

/// How pens and brushes combine with what is there: numbers of the raster operations, 1 to 16.
QPainter::CompositionMode modeOf(int operation) {
    switch (operation) {
    case 2:
        return QPainter::RasterOp_NotSourceAndNotDestination;
    case 3:
        return QPainter::RasterOp_NotSourceAndDestination;
    case 4:
        return QPainter::RasterOp_NotSource;
    case 5:
        return QPainter::RasterOp_SourceAndNotDestination;
    case 6:
        return QPainter::RasterOp_NotDestination;
    case 7:
        return QPainter::RasterOp_SourceXorDestination;
    case 8:
        return QPainter::RasterOp_NotSourceOrNotDestination;
    case 9:
        return QPainter::RasterOp_SourceAndDestination;
    case 10:
        return QPainter::RasterOp_NotSourceXorDestination;
    case 12:
        return QPainter::RasterOp_NotSourceOrDestination;
    case 14:
        return QPainter::RasterOp_SourceOrNotDestination;
    case 15:
        return QPainter::RasterOp_SourceOrDestination;
    default:
        return QPainter::CompositionMode_SourceOver;
    }
}

double degreesAt(const QRectF& box, QPointF point) {
    const QPointF offset = point - box.center();
    const double x = ratio(offset.x(), box.width()), y = ratio(offset.y(), box.height());
    return -std::atan2(y, x) * 180 / std::numbers::pi;
}

} // namespace

double GdiCanvas::within(double value) {
    return std::isfinite(value) ? std::clamp(value, -farAway, farAway) : 0;
}

GdiCanvas::GdiCanvas(QImage& image, const QTransform& deviceToImage, const FontShelf& fonts) :
    m_painter(&image), m_deviceToImage(deviceToImage), m_fonts(fonts), m_area(image.rect()) {
    m_painter.setRenderHint(QPainter::Antialiasing);
    m_painter.setRenderHint(QPainter::SmoothPixmapTransform);
}

void GdiCanvas::save() {
    if (m_saved.size() >= maxSaved)
        return;
    m_saved.push_back(m_state);
    m_painter.save();
}

void GdiCanvas::restore(int level) {
    const std::int64_t count = std::int64_t(m_saved.size());
    const std::int64_t remaining = level < 0 ? count + level : std::int64_t(level) - 1;
    if (remaining < 0 || remaining >= count)
        return;
    m_state = m_saved[std::size_t(remaining)];
    for (std::int64_t i = remaining; i < count; ++i)
        m_painter.restore();
    m_saved.resize(std::size_t(remaining));
}

QTransform GdiCanvas::pageTransform() const {
    const double x = ratio(m_state.viewportSize.x(), m_state.windowSize.x());
    const double y = ratio(m_state.viewportSize.y(), m_state.windowSize.y());
    const QTransform page(x, 0, 0, y, m_state.viewportOrigin.x() - m_state.windowOrigin.x() * x,
                          m_state.viewportOrigin.y() - m_state.windowOrigin.y() * y);
    return page * m_deviceToImage;
}

QPainterPath GdiCanvas::toImage(const QPainterPath& logical) const {
    QPainterPath path = transform().map(logical);
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        path.setElementPositionAt(i, within(element.x), within(element.y));
    }
    path.setFillRule(m_state.fillsWinding ? Qt::WindingFill : Qt::OddEvenFill);
    return path;
}

/// Pixels of a logical unit, in the mean of both directions.
double GdiCanvas::scale() const {
    return within(std::sqrt(std::abs(transform().determinant())));
}

QPen GdiCanvas::pen() const {
    constexpr double thinnest = 1;
    const GdiPen& from = m_state.pen;
    const double widest = 4 * (m_area.width() + m_area.height());
    const double width = std::clamp(within(from.width * scale()), thinnest, widest);
    QPen pen(from.color, width);
    pen.setCapStyle(from.width == 0 ? Qt::FlatCap : from.cap);
    pen.setJoinStyle(from.join);
    pen.setMiterLimit(std::clamp(m_state.miterLimit, 1.0, 1000.0));
    static const QList<qreal> patterns[] = {{}, {4, 2}, {1, 1}, {4, 2, 1, 2}, {4, 2, 1, 2, 1, 2}};
    if (from.style > GdiPen::Solid && from.style <= GdiPen::DashDotDot)
        pen.setDashPattern(patterns[from.style]);
    if (from.style == GdiPen::Alternate)
        pen.setDashPattern({1, 1});
    if (from.style == GdiPen::UserStyle && !from.dashes.empty()) {
        QList<qreal> dashes;
        for (const double dash : from.dashes)
            dashes << std::max(within(dash * scale()) / width, 0.1);
        if (dashes.size() % 2)
            dashes += QList<qreal>(dashes);
        pen.setDashPattern(dashes);
    }
    return pen;
}

/// White under the part that nothing was drawn on, for what combines with the ground.
void GdiCanvas::whiten(const QRectF& area) {
    m_painter.setCompositionMode(QPainter::CompositionMode_DestinationOver);
    m_painter.fillRect(area.adjusted(-1, -1, 1, 1) & m_area, Qt::white);
}

/// False when the operation draws nothing.
bool GdiCanvas::setOperation(int operation) {
    constexpr int keeps = 11;
    if (operation == keeps)
        return false;
    m_painter.setCompositionMode(modeOf(operation));
    m_painter.setRenderHint(QPainter::Antialiasing,
                            modeOf(operation) == QPainter::CompositionMode_SourceOver);
    return true;
}

QImage GdiCanvas::patternOf(const GdiBrush& brush) const {
    QImage pattern = brush.pattern;
    for (int y = 0; y < pattern.height() && brush.hasTextColors; ++y) {
        auto* row = reinterpret_cast<QRgb*>(pattern.scanLine(y));
        std::transform(row, row + pattern.width(), row, [&](QRgb pixel) {
            return (pixel == qRgb(0, 0, 0) ? m_state.textColor : m_state.backColor).rgb();
        });
    }
    return pattern;
}

void GdiCanvas::fill(const QPainterPath& path, const GdiBrush& brush) {
    constexpr int black = 1, white = 16;
    if (brush.style == Qt::TexturePattern) {
        if (!brush.pattern.isNull())
            m_painter.fillPath(path, QBrush(patternOf(brush)));
        return;
    }
    QColor color = brush.color;
    if (m_state.rasterOperation == black || m_state.rasterOperation == white)
        color = m_state.rasterOperation == black ? Qt::black : Qt::white;
    if (brush.style != Qt::SolidPattern && m_state.isBackOpaque)
        m_painter.fillPath(path, m_state.backColor);
    m_painter.fillPath(path, QBrush(color, brush.style));
}

void GdiCanvas::paint(const QPainterPath& path, bool fills, bool strokes) {
    if (modeOf(m_state.rasterOperation) != QPainter::CompositionMode_SourceOver)
        whiten(path.controlPointRect());
    if (!setOperation(m_state.rasterOperation))
        return;
    if (fills && m_state.brush.style != Qt::NoBrush)
        fill(path, m_state.brush);
    if (strokes && m_state.pen.style != GdiPen::None)
        m_painter.strokePath(path, pen());
}

void GdiCanvas::drawShape(const QPainterPath& logical, bool fills, bool strokes) {
    if (!m_isPathOpen)
        return paint(toImage(logical), fills, strokes);
    m_path.addPath(toImage(logical));
    m_isFigureOpen = false;
}

void GdiCanvas::continueShape(const QPainterPath& logical) {
    if (!m_isPathOpen)
        return paint(toImage(logical), false, true);
    const QPainterPath added = toImage(logical);
    if (m_isFigureOpen)
        m_path.connectPath(added);
    else
        m_path.addPath(added);
    m_isFigureOpen = true;
}

void GdiCanvas::moveTo(QPointF to) {
    m_state.position = to;
    m_isFigureOpen = false;
}

void GdiCanvas::beginPath() {
    m_path = {};
    m_isPathOpen = true;
    m_isFigureOpen = false;
}

void GdiCanvas::abortPath() {
    m_path = {};
    m_isPathOpen = false;
}

void GdiCanvas::closeFigure() {
    if (m_isPathOpen)
        m_path.closeSubpath();
    m_isFigureOpen = false;
}

void GdiCanvas::drawPath(bool fills, bool strokes) {
    m_isPathOpen = false;
    m_path.setFillRule(m_state.fillsWinding ? Qt::WindingFill : Qt::OddEvenFill);
    paint(m_path, fills, strokes);
    m_path = {};
}

/// Regions of so many corners that combining them takes long replace the one before.
void GdiCanvas::combineClip(const QPainterPath& path, ClipMode mode) {
    constexpr int maxElements = 500;
    if (mode == ClipMode::Intersect || mode == ClipMode::Replace)
        return m_painter.setClipPath(path, mode == ClipMode::Intersect ? Qt::IntersectClip : Qt::ReplaceClip);
    QPainterPath before;
    before.addRect(m_area);
    if (m_painter.hasClipping())
        before = m_painter.clipPath();
    if (before.elementCount() > maxElements || path.elementCount() > maxElements)
        return m_painter.setClipPath(path, Qt::ReplaceClip);
    QPainterPath result = before.subtracted(path);
    if (mode == ClipMode::Unite)
        result = before.united(path);
    else if (mode == ClipMode::Exclusive)
        result = result.united(path.subtracted(before));
    m_painter.setClipPath(result, Qt::ReplaceClip);
}

void GdiCanvas::clipToPath(ClipMode mode) {
    m_isPathOpen = false;
    m_path.setFillRule(m_state.fillsWinding ? Qt::WindingFill : Qt::OddEvenFill);
    combineClip(m_path, mode);
    m_path = {};
}

void GdiCanvas::clip(const QPainterPath& logical, ClipMode mode) {
    combineClip(toImage(logical), mode);
}

void GdiCanvas::clipDevice(const QPainterPath& device, ClipMode mode) {
    combineClip(m_deviceToImage.map(device), mode);
}

void GdiCanvas::moveClip(QPointF logical) {
    const QPointF by = transform().map(logical) - transform().map(QPointF(0, 0));
    if (m_painter.hasClipping())
        m_painter.setClipPath(m_painter.clipPath().translated(within(by.x()), within(by.y())));
}

void GdiCanvas::exclude(const QRectF& logical) {
    QPainterPath excluded;
    excluded.addRect(logical.normalized());
    QPainterPath rest = toImage(excluded);
    rest.addRect(m_area.adjusted(-farAway, -farAway, farAway, farAway));
    rest.setFillRule(Qt::OddEvenFill);
    m_painter.setClipPath(rest, Qt::IntersectClip);
}

void GdiCanvas::resetClip() {
    m_painter.setClipping(false);
}

/// Counter-clockwise as one sees it, unless the state says otherwise; the page may be upside down.
double GdiCanvas::sweepSign() const {
    return (transform().determinant() < 0) == m_state.arcsClockwise ? 1 : -1;
}

void GdiCanvas::arc(const QRectF& box, QPointF from, QPointF to, ArcKind kind) {
    const double start = degreesAt(box, from);
    double sweep = std::fmod((degreesAt(box, to) - start) * sweepSign() + 720, 360);
    if (sweep == 0)
        sweep = 360;
    QPainterPath path;
    if (kind == ArcKind::Pie)
        path.moveTo(box.center());
    else if (kind == ArcKind::FromPosition)
        path.moveTo(m_state.position);
    else
        path.arcMoveTo(box, start);
    path.arcTo(box, start, sweep * sweepSign());
    if (kind == ArcKind::FromPosition) {
        m_state.position = path.currentPosition();
        return continueShape(path);
    }
    const bool isClosed = kind == ArcKind::Chord || kind == ArcKind::Pie;
    if (isClosed)
        path.closeSubpath();
    drawShape(path, isClosed);
}

void GdiCanvas::angleArc(QPointF center, double radius, double start, double sweep) {
    QPainterPath path(m_state.position);
    const QRectF box(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    path.arcTo(box, start, std::clamp(sweep, -360.0, 360.0));
    m_state.position = path.currentPosition();
    continueShape(path);
}

void GdiCanvas::setPixel(QPointF at, const QColor& color) {
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    const QPointF pixel = transform().map(at);
    const double side = std::max(scale(), 1.0);
    m_painter.fillRect(QRectF(within(pixel.x()), within(pixel.y()), side, side), color);
}

void GdiCanvas::fillRegion(const QPainterPath& logical, const GdiBrush& brush) {
    const GdiBrush selected = std::exchange(m_state.brush, brush);
    paint(toImage(logical), true, false);
    m_state.brush = selected;
}

void GdiCanvas::gradient(const QRectF& box, const QColor& from, const QColor& to, bool isVertical) {
    QPainterPath path;
    path.addRect(box.normalized());
    const QTransform map = transform();
    QLinearGradient gradient(map.map(box.topLeft()), map.map(isVertical ? box.bottomLeft() : box.topRight()));
    gradient.setColorAt(0, from);
    gradient.setColorAt(1, to);
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.fillPath(toImage(path), gradient);
}

/// Each channel changes evenly along both axes, so that it has the corners' values there. Without soft edges,
/// which would show between triangles.
void GdiCanvas::gradientTriangle(const std::array<Corner, 3>& corners) {
    QPainterPath logical(corners[0].place);
    logical.lineTo(corners[1].place);
    logical.lineTo(corners[2].place);
    logical.closeSubpath();
    const QPainterPath path = toImage(logical);
    const QPointF start = path.elementAt(0);
    const QPointF one = QPointF(path.elementAt(1)) - start, other = QPointF(path.elementAt(2)) - start;
    const double area = one.x() * other.y() - one.y() * other.x();
    const QRect box = (path.boundingRect() & m_area).toAlignedRect();
    if (area == 0 || box.isEmpty())
        return;
    QImage colors(box.size(), QImage::Format_RGB32);
    for (int y = 0; y < box.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(colors.scanLine(y));
        for (int x = 0; x < box.width(); ++x) {
            const QPointF from = QPointF(box.x() + x + 0.5, box.y() + y + 0.5) - start;
            const double second = (from.x() * other.y() - from.y() * other.x()) / area;
            const double third = (one.x() * from.y() - one.y() * from.x()) / area;
            const auto channel = [&](int (QColor::*value)() const) {
                const auto at = [&](int i) { return (corners[std::size_t(i)].color.*value)(); };
                const double mixed = at(0) + second * (at(1) - at(0)) + third * (at(2) - at(0));
                return int(std::lround(std::clamp(mixed, 0.0, 255.0)));
            };
            row[x] = qRgb(channel(&QColor::red), channel(&QColor::green), channel(&QColor::blue));
        }
    }
    m_painter.save();
    m_painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    m_painter.setRenderHint(QPainter::Antialiasing, false);
    m_painter.setClipPath(path, Qt::IntersectClip);
    m_painter.drawImage(box.topLeft(), colors);
    m_painter.restore();
}

} // namespace tarsel::decoder
