// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/CodePages.h"
#include "decoder/GdiBitmap.h"
#include "decoder/GdiCanvas.h"
#include "decoder/MetafilePlayers.h"
#include "decoder/MetafileRecord.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace tarsel::decoder {

namespace {

constexpr std::int64_t headSize = 8; ///< type 32, size 32; offsets in records count from there

/// The records and what they do, in the order of their numbers.
class EmfPlayer {
public:
    EmfPlayer(const MetafileHeader& header, const FontShelf& fonts, QImage& image) :
        m_canvas(image, deviceToImage(header, image), fonts), m_device(header) {
        state().hasFreeAxes = false;
    }

    Played play(std::span<const std::byte> file, std::int64_t at) {
        const ByteReader reader(file, ByteOrder::Little);
        constexpr std::uint32_t endOfFile = 14;
        bool isAnyKnown = false;
        for (;;) {
            const auto type = reader.dword(at);
            const std::int64_t size = reader.dword(at + 4).value_or(0);
            if (!type || *type == endOfFile || size < headSize)
                return !isAnyKnown ? Played::Nothing : type == endOfFile ? Played::All : Played::Part;
            const auto step = steps().find(*type);
            if (step != steps().end())
                (this->*step->second)(MetafileRecord(*reader.slice(at, std::min(size, reader.size() - at))));
            isAnyKnown = isAnyKnown || step != steps().end();
            at += size;
        }
    }

private:
    using Record = const MetafileRecord&;
    using Step = void (EmfPlayer::*)(Record);

    static QTransform deviceToImage(const MetafileHeader& header, const QImage& image) {
        const double x = image.width() / (header.right - header.left);
        const double y = image.height() / (header.bottom - header.top);
        return QTransform(x, 0, 0, y, -header.left * x, -header.top * y);
    }

    GdiState& state() { return m_canvas.state(); }
    static QPointF point(Record r, std::int64_t at) { return r.pointAt(at, false); }
    /// Left, top, right, bottom.
    static QRectF box(Record r, std::int64_t at) { return QRectF(point(r, at), point(r, at + 8)); }
    /// Left, top, width, height.
    static QRectF placed(Record r, std::int64_t at) {
        return {point(r, at), QSizeF(r.int32At(at + 8), r.int32At(at + 12))};
    }
    static QPainterPath rectanglePath(const QRectF& box) {
        QPainterPath path;
        path.addRect(box.normalized());
        return path;
    }

    // Mapping. In the map modes 2 to 6 a unit is a length, 7 and 8 have free axes, 1 has the device's units.

    void setWindowSize(Record r) {
        if (state().hasFreeAxes)
            state().windowSize = point(r, 8);
    }
    void setWindowOrigin(Record r) { state().windowOrigin = point(r, 8); }
    void setViewportSize(Record r) {
        if (state().hasFreeAxes)
            state().viewportSize = point(r, 8);
    }
    void setViewportOrigin(Record r) { state().viewportOrigin = point(r, 8); }
    static QPointF scaled(QPointF size, Record r) {
        const auto factor = [&](int at) {
            return r.int32At(at + 4) == 0 ? 1.0 : double(r.int32At(at)) / r.int32At(at + 4);
        };
        return {size.x() * factor(8), size.y() * factor(16)};
    }
    void scaleViewport(Record r) { state().viewportSize = scaled(state().viewportSize, r); }
    void scaleWindow(Record r) { state().windowSize = scaled(state().windowSize, r); }
    void setMapMode(Record r) {
        constexpr double perMillimeter[] = {0, 0, 10, 100, 1 / 0.254, 1 / 0.0254, 1440 / 25.4};
        const std::uint32_t mode = r.dwordAt(8);
        state().hasFreeAxes = mode > 6;
        if (state().hasFreeAxes)
            return;
        state().windowSize = state().viewportSize = {1, 1};
        if (mode < 2)
            return;
        constexpr double millimetersPerInch = 25.4, dotsPerInch = 96;
        const double across =
            (m_device.right - m_device.left) / (m_device.width / dotsPerInch * millimetersPerInch);
        const double down =
            (m_device.bottom - m_device.top) / (m_device.height / dotsPerInch * millimetersPerInch);
        state().viewportSize = {across, -down};
        state().windowSize = {perMillimeter[mode], perMillimeter[mode]};
    }
    static QTransform worldAt(Record r, std::int64_t at) {
        const auto number = [&](int i) {
            const double value = double(r.floatAt(at + std::int64_t(4) * i));
            return std::isfinite(value) ? value : 0.0;
        };
        return QTransform(number(0), number(1), number(2), number(3), number(4), number(5));
    }
    void setWorld(Record r) { state().world = worldAt(r, 8); }
    void modifyWorld(Record r) {
        enum { Identity = 1, Left = 2, Right = 3, Set = 4 };
        const QTransform by = worldAt(r, 8);
        switch (r.dwordAt(32)) {
        case Identity:
            state().world = {};
            break;
        case Left:
            state().world = by * state().world;
            break;
        case Right:
            state().world = state().world * by;
            break;
        default:
            state().world = by;
        }
    }

    // State

    void setBackMode(Record r) { state().isBackOpaque = r.dwordAt(8) == 2; }
    void setFillMode(Record r) { state().fillsWinding = r.dwordAt(8) == 2; }
    void setRasterOperation(Record r) { state().rasterOperation = r.int32At(8); }
    void setTextAlign(Record r) { state().textAlign = r.dwordAt(8); }
    void setTextColor(Record r) { state().textColor = colorOf(r.dwordAt(8)); }
    void setBackColor(Record r) { state().backColor = colorOf(r.dwordAt(8)); }
    void setArcDirection(Record r) { state().arcsClockwise = r.dwordAt(8) == 2; }
    void setMiterLimit(Record r) { state().miterLimit = r.int32At(8); }
    void save(Record) { m_canvas.save(); }
    void restore(Record r) { m_canvas.restore(r.int32At(8)); }

    // Clipping

    void excludeClip(Record r) { m_canvas.exclude(box(r, 8)); }
    void intersectClip(Record r) { m_canvas.clip(rectanglePath(box(r, 8)), ClipMode::Intersect); }
    void moveClip(Record r) { m_canvas.moveClip(point(r, 8)); }
    void selectClipPath(Record r) { m_canvas.clipToPath(modeAt(r, 8)); }
    static ClipMode modeAt(Record r, std::int64_t at) {
        const std::uint32_t mode = r.dwordAt(at);
        return mode >= 1 && mode <= 5 ? ClipMode(mode) : ClipMode::Replace;
    }
    /// Header 32 bytes with the count of rectangles at 8; rectangles.
    static QPainterPath regionAt(Record r, std::int64_t at) {
        constexpr std::uint32_t maxRectangles = 100'000;
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        const std::uint32_t count = std::min(r.dwordAt(at + 8), maxRectangles);
        for (std::int64_t i = 0; i < count && at + 48 + 16 * i <= r.size(); ++i)
            path.addRect(box(r, at + 32 + 16 * i).normalized());
        return path;
    }
    void selectClipRegion(Record r) {
        if (r.dwordAt(8) == 0)
            m_canvas.resetClip();
        else
            m_canvas.clipDevice(regionAt(r, 16), modeAt(r, 12));
    }
    void fillRegion(Record r) {
        if (const auto* brush = objectAt<GdiBrush>(r.dwordAt(28)))
            m_canvas.fillRegion(regionAt(r, 32), *brush);
    }
    void paintRegion(Record r) { m_canvas.fillRegion(regionAt(r, 28), state().brush); }

    // Lines and shapes; the bounds at 8 are not needed. "16" is a record with short points.

    template <bool Short>
    std::vector<QPointF> points(Record r) const {
        return r.pointsAt(28, r.dwordAt(24), Short);
    }
    static QPainterPath curvesThrough(std::span<const QPointF> points) {
        QPainterPath path;
        if (!points.empty())
            path.moveTo(points[0]);
        for (std::size_t i = 1; i + 2 < points.size(); i += 3)
            path.cubicTo(points[i], points[i + 1], points[i + 2]);
        return path;
    }
    template <bool Short>
    void polygon(Record r) {
        m_canvas.drawShape(linesThrough(points<Short>(r), true));
    }
    template <bool Short>
    void polyline(Record r) {
        m_canvas.drawShape(linesThrough(points<Short>(r), false), false);
    }
    template <bool Short>
    void polyBezier(Record r) {
        m_canvas.drawShape(curvesThrough(points<Short>(r)), false);
    }
    template <bool Short>
    void polylineTo(Record r) {
        goOn(linesThrough(fromPosition(points<Short>(r)), false));
    }
    template <bool Short>
    void polyBezierTo(Record r) {
        goOn(curvesThrough(fromPosition(points<Short>(r))));
    }
    std::vector<QPointF> fromPosition(std::vector<QPointF> points) {
        points.insert(points.begin(), state().position);
        return points;
    }
    void goOn(const QPainterPath& path) {
        m_canvas.continueShape(path);
        state().position = path.currentPosition();
    }
    /// Counts of the figures at 32, then all points.
    template <bool Short>
    void polyPoly(Record r, bool isClosed) {
        const std::uint32_t count = r.dwordAt(24);
        std::int64_t at = 32 + std::int64_t(count) * 4;
        QPainterPath path;
        for (std::int64_t i = 0; i < count && at < r.size(); ++i) {
            const std::uint32_t points = r.dwordAt(32 + 4 * i);
            path.addPath(linesThrough(r.pointsAt(at, points, Short), isClosed));
            at += std::int64_t(points) * (Short ? 4 : 8);
        }
        m_canvas.drawShape(path, isClosed);
    }
    template <bool Short>
    void polyPolygon(Record r) {
        polyPoly<Short>(r, true);
    }
    template <bool Short>
    void polyPolyline(Record r) {
        polyPoly<Short>(r, false);
    }
    /// A kind for each point: 2 line, 4 curve, 6 move; 1 closes.
    template <bool Short>
    void polyDraw(Record r) {
        const std::vector<QPointF> all = points<Short>(r);
        const std::int64_t kinds = 28 + std::int64_t(r.dwordAt(24)) * (Short ? 4 : 8);
        QPainterPath path(state().position);
        for (std::size_t i = 0; i < all.size(); ++i) {
            int kind = r.byteAt(kinds + std::int64_t(i));
            if ((kind & 6) == 6) {
                path.moveTo(all[i]);
            } else if ((kind & 6) == 4 && i + 2 < all.size()) {
                path.cubicTo(all[i], all[i + 1], all[i + 2]);
                i += 2;
                kind = r.byteAt(kinds + std::int64_t(i));
            } else {
                path.lineTo(all[i]);
            }
            if (kind & 1)
                path.closeSubpath();
        }
        goOn(path);
    }
    void moveTo(Record r) { m_canvas.moveTo(point(r, 8)); }
    void lineTo(Record r) {
        QPainterPath line(state().position);
        line.lineTo(point(r, 8));
        goOn(line);
    }
    void setPixel(Record r) { m_canvas.setPixel(point(r, 8), colorOf(r.dwordAt(16))); }
    void rectangle(Record r) { m_canvas.drawShape(rectanglePath(box(r, 8))); }
    void ellipse(Record r) {
        QPainterPath path;
        path.addEllipse(box(r, 8).normalized());
        m_canvas.drawShape(path);
    }
    void roundRectangle(Record r) {
        QPainterPath path;
        path.addRoundedRect(box(r, 8).normalized(), std::abs(r.int32At(24) / 2.0),
                            std::abs(r.int32At(28) / 2.0));
        m_canvas.drawShape(path);
    }
    void drawArc(Record r, GdiCanvas::ArcKind kind) {
        m_canvas.arc(box(r, 8).normalized(), point(r, 24), point(r, 32), kind);
    }
    void arc(Record r) { drawArc(r, GdiCanvas::ArcKind::Open); }
    void chord(Record r) { drawArc(r, GdiCanvas::ArcKind::Chord); }
    void pie(Record r) { drawArc(r, GdiCanvas::ArcKind::Pie); }
    void arcTo(Record r) { drawArc(r, GdiCanvas::ArcKind::FromPosition); }
    void angleArc(Record r) {
        m_canvas.angleArc(point(r, 8), r.dwordAt(16), double(r.floatAt(20)), double(r.floatAt(24)));
    }

    // Paths

    void beginPath(Record) { m_canvas.beginPath(); }
    void endPath(Record) { m_canvas.endPath(); }
    void closeFigure(Record) { m_canvas.closeFigure(); }
    void fillPath(Record) { m_canvas.drawPath(true, false); }
    void strokeAndFillPath(Record) { m_canvas.drawPath(true, true); }
    void strokePath(Record) { m_canvas.drawPath(false, true); }
    void abortPath(Record) { m_canvas.abortPath(); }

    // Objects, by numbers of their own; those with the top bit set are always there.

    template <class Object>
    const Object* objectAt(std::uint32_t index) const {
        const auto found = m_objects.find(index);
        return found == m_objects.end() ? nullptr : std::get_if<Object>(&found->second);
    }
    void put(Record r, GdiObject object) { m_objects[r.dwordAt(8)] = std::move(object); }
    void createPen(Record r) { put(r, penOf(r.dwordAt(12), r.int32At(16), r.dwordAt(24))); }
    /// Bitmap's places at 12, then style, width, kind of brush, colour, hatch, count of dashes, dashes.
    void extCreatePen(Record r) {
        GdiPen pen = penOf(r.dwordAt(28), r.int32At(32), r.dwordAt(40));
        const std::uint32_t count = std::min(r.dwordAt(48), 64U);
        for (std::int64_t i = 0; i < count; ++i)
            pen.dashes.push_back(r.int32At(52 + 4 * i));
        put(r, pen);
    }
    void createBrush(Record r) { put(r, brushOf(r.dwordAt(12), r.dwordAt(16), r.dwordAt(20))); }
    void createPatternBrush(Record r) { put(r, GdiBrush{Qt::TexturePattern, Qt::black, bitmapAt(r, 16)}); }
    void createFont(Record r) {
        LogicalFont font{r.int32At(12), r.int32At(16), r.int32At(20), r.int32At(28), r.byteAt(32),
                         r.byteAt(33),  r.byteAt(34),  r.byteAt(35),  r.byteAt(39),  {}};
        for (int i = 0; i < 32 && r.wordAt(40 + 2 * i) != 0; ++i)
            font.face += QChar(char16_t(r.wordAt(40 + 2 * i)));
        put(r, fontOf(font));
    }
    /// Of one bit a pixel, without colours of its own.
    void createMonoBrush(Record r) { put(r, GdiBrush{Qt::TexturePattern, Qt::black, bitsAt(r, 16), true}); }
    static QImage bitsAt(Record r, std::int64_t at) {
        return twoColorImage(r.bytesAt(r.dwordAt(at), r.dwordAt(at + 4)),
                             r.bytesAt(r.dwordAt(at + 8), r.dwordAt(at + 12)));
    }
    void deleteObject(Record r) { m_objects.erase(r.dwordAt(8)); }
    void select(Record r) {
        const std::uint32_t index = r.dwordAt(8);
        if (index & 0x80000000)
            return selectStock(index & 0x7FFFFFFF);
        if (const auto* pen = objectAt<GdiPen>(index))
            state().pen = *pen;
        if (const auto* brush = objectAt<GdiBrush>(index))
            state().brush = *brush;
        if (const auto* font = objectAt<GdiFont>(index))
            state().font = *font;
    }
    void selectStock(std::uint32_t number) {
        constexpr int grays[] = {255, 192, 128, 64, 0};
        enum { NoBrush = 5, WhitePen, BlackPen, NoPen, FirstFont = 10, FixedFont = 11, LastFont = 17 };
        if (number < NoBrush)
            state().brush = {Qt::SolidPattern, QColor(grays[number], grays[number], grays[number])};
        else if (number == NoBrush)
            state().brush.style = Qt::NoBrush;
        else if (number == NoPen)
            state().pen.style = GdiPen::None;
        else if (number == WhitePen || number == BlackPen)
            state().pen = GdiPen{GdiPen::Solid, 0, number == WhitePen ? Qt::white : Qt::black};
        else if (number >= FirstFont && number <= LastFont)
            state().font = fontOf({.height = 13, .face = QStringLiteral("Arial")});
    }

    // Text: place, length, offset of the letters, options, box, offset of the distances at 36.

    void textOut(Record r, bool isWide) {
        enum Options : std::uint32_t { Opaque = 2, Clipped = 4, GlyphNumbers = 16, TwoWay = 0x2000 };
        const std::uint32_t count = std::uint32_t(std::min<std::int64_t>(r.dwordAt(44), r.size()));
        const std::uint32_t options = r.dwordAt(52);
        const std::int64_t letters = r.dwordAt(48), distances = r.dwordAt(72);
        GdiText text;
        text.reference = point(r, 36);
        text.fillsBox = options & Opaque;
        text.isClipped = options & Clipped;
        text.areGlyphs = isWide && options & GlyphNumbers;
        text.box = box(r, 56);
        const int each = options & TwoWay ? 8 : 4;
        if (!isWide)
            text.characters = decodedText(state().font.charset, r.bytesAt(letters, count));
        for (std::int64_t i = 0; i < count; ++i) {
            if (isWide)
                text.characters.push_back(r.wordAt(letters + 2 * i));
            if (distances > 0 && distances + each * (i + 1) <= r.size())
                text.advances.push_back(r.int32At(distances + each * i));
        }
        if (isWide && !text.areGlyphs)
            joinSurrogates(text.characters);
        m_canvas.drawText(text);
    }
    void textOutWide(Record r) { textOut(r, true); }
    void textOutNarrow(Record r) { textOut(r, false); }
    /// Place, count, options, mode, scale, scale, (box,) letters; options 0x100: no box, 0x200: narrow ones.
    void smallTextOut(Record r) {
        const std::uint32_t options = r.dwordAt(20);
        const std::int64_t start = options & 0x100 ? 36 : 52;
        const std::int64_t count = std::min<std::int64_t>(r.dwordAt(16), r.size());
        GdiText text;
        text.reference = point(r, 8);
        for (std::int64_t i = 0; i < count; ++i)
            text.characters.push_back(options & 0x200 ? unsigned(r.byteAt(start + i))
                                                      : r.wordAt(start + 2 * i));
        m_canvas.drawText(text);
    }
    // Bitmaps: offset and size of the header, offset and size of the bits.

    static QImage bitmapAt(Record r, std::int64_t at) {
        return dibImage(r.bytesAt(r.dwordAt(at), r.dwordAt(at + 4)),
                        r.bytesAt(r.dwordAt(at + 8), r.dwordAt(at + 12)));
    }
    /// Target at 24, operation, source's place, transform, colour, use of the palette, bitmap at 84.
    void bitBlit(Record r) {
        const QRectF target = placed(r, 24);
        m_canvas.blit({target, bitmapAt(r, 84), {point(r, 44), absolute(target.size())}, r.dwordAt(40)});
    }
    /// The size of the source follows.
    QRectF sourceOf(Record r) const { return {point(r, 44), QSizeF(r.int32At(100), r.int32At(104))}; }
    void stretchBlit(Record r) {
        m_canvas.blit({placed(r, 24), bitmapAt(r, 84), sourceOf(r), r.dwordAt(40)});
    }
    /// The top byte of the operation is for the zeros of the mask, which follows at 100: its place, use,
    /// bitmap at 112.
    void maskBlit(Record r) {
        const QRectF target = placed(r, 24);
        const GdiBlit blit{
            target, bitmapAt(r, 84), {point(r, 44), absolute(target.size())}, r.dwordAt(40) & 0xFFFFFF};
        drawMasked(r, blit, 100, r.dwordAt(40) >> 24);
    }
    /// Three corners at 24, source's place and size at 48, bitmap at 96, mask's place at 112, mask at 124.
    void parallelogramBlit(Record r) {
        const QSizeF size(r.int32At(56), r.int32At(60));
        if (size.isEmpty())
            return;
        const QPointF corner = point(r, 24);
        const QPointF across = (point(r, 32) - corner) / size.width(),
                      down = (point(r, 40) - corner) / size.height();
        const QTransform world = state().world;
        state().world =
            QTransform(across.x(), across.y(), down.x(), down.y(), corner.x(), corner.y()) * world;
        drawMasked(r, {{{0, 0}, size}, bitmapAt(r, 96), {point(r, 48), size}}, 112, 0xAA);
        state().world = world;
    }
    /// `background` is the operation for zeros of the mask: 0xCC draws there too, others keep the ground.
    void drawMasked(Record r, GdiBlit blit, std::int64_t at, std::uint32_t background) {
        const QImage mask = r.dwordAt(at + 24) > 0 ? bitsAt(r, at + 12) : QImage();
        if (!mask.isNull() && background != 0xCC)
            clearUnmasked(blit.image, mask, point(r, at).toPoint() - blit.source.topLeft().toPoint());
        m_canvas.blit(blit);
    }
    static QSizeF absolute(QSizeF size) { return {std::abs(size.width()), std::abs(size.height())}; }
    /// Place at 24, source's place and size, bitmap at 48, use, first row, rows.
    void setDibToDevice(Record r) {
        const QImage image = bitmapAt(r, 48);
        const QSizeF size(r.int32At(40), r.int32At(44));
        const QRectF source(QPointF(r.int32At(32), image.height() - r.int32At(36) - size.height()), size);
        m_canvas.blit({{point(r, 24), size}, image, source});
    }
    /// Place at 24, source's place and size, bitmap at 48, use, operation, size.
    void stretchDib(Record r) {
        const QImage image = bitmapAt(r, 48);
        const QSizeF size(r.int32At(40), r.int32At(44));
        const QRectF source(QPointF(r.int32At(32), image.height() - r.int32At(36) - size.height()), size);
        const QSizeF drawn(r.int32At(72), r.int32At(76));
        m_canvas.blit({{point(r, 24), drawn}, image, source, r.dwordAt(68)});
    }
    /// The operation holds kind, flags, opacity and whether the bitmap has alpha.
    void alphaBlend(Record r) {
        constexpr std::uint32_t replaces = 0x00CC0020, hasAlpha = 1;
        const std::uint32_t blend = r.dwordAt(40);
        const QImage image = blend >> 24 & hasAlpha
                                 ? premultipliedDibImage(r.bytesAt(r.dwordAt(84), r.dwordAt(88)),
                                                         r.bytesAt(r.dwordAt(92), r.dwordAt(96)))
                                 : bitmapAt(r, 84);
        m_canvas.blit({placed(r, 24), image, sourceOf(r), replaces, int(blend >> 16 & 255)});
    }
    /// The operation is the colour that isn't drawn.
    void transparentBlit(Record r) {
        QImage image = bitmapAt(r, 84);
        clearColor(image, colorOf(r.dwordAt(40)).rgb());
        m_canvas.blit({placed(r, 24), image, sourceOf(r)});
    }
    /// Corners (place, four colours of 16 bits) at 36, then pairs of them, the corners of rectangles, or
    /// triangles.
    void gradientFill(Record r) {
        constexpr std::uint32_t vertical = 1, triangles = 2;
        const std::uint32_t corners = r.dwordAt(24), count = r.dwordAt(28), mode = r.dwordAt(32);
        const auto colorAt = [&](std::int64_t at) {
            return QColor(int(r.wordAt(at + 8) >> 8), int(r.wordAt(at + 10) >> 8),
                          int(r.wordAt(at + 12) >> 8));
        };
        const std::int64_t pairs = 36 + std::int64_t(corners) * 16;
        const auto cornerAt = [&](std::int64_t at) {
            const std::int64_t corner = 36 + 16 * std::int64_t(r.dwordAt(at));
            return GdiCanvas::Corner{point(r, corner), colorAt(corner)};
        };
        for (std::int64_t i = 0; i < count && mode == triangles && pairs + 12 * i + 12 <= r.size(); ++i) {
            const std::int64_t at = pairs + 12 * i;
            m_canvas.gradientTriangle({cornerAt(at), cornerAt(at + 4), cornerAt(at + 8)});
        }
        for (std::int64_t i = 0; i < count && mode < triangles && pairs + 8 * i + 8 <= r.size(); ++i) {
            const std::int64_t from = 36 + 16 * std::int64_t(r.dwordAt(pairs + 8 * i));
            const std::int64_t to = 36 + 16 * std::int64_t(r.dwordAt(pairs + 8 * i + 4));
            m_canvas.gradient({point(r, from), point(r, to)}, colorAt(from), colorAt(to), mode == vertical);
        }
    }

    static const std::map<std::uint32_t, Step>& steps();

    GdiCanvas m_canvas;
    const MetafileHeader& m_device;
    std::map<std::uint32_t, GdiObject> m_objects;
};

const std::map<std::uint32_t, EmfPlayer::Step>& EmfPlayer::steps() {
    using P = EmfPlayer;
    static const std::map<std::uint32_t, Step> table = {{2, &P::polyBezier<false>},
                                                        {3, &P::polygon<false>},
                                                        {4, &P::polyline<false>},
                                                        {5, &P::polyBezierTo<false>},
                                                        {6, &P::polylineTo<false>},
                                                        {7, &P::polyPolyline<false>},
                                                        {8, &P::polyPolygon<false>},
                                                        {9, &P::setWindowSize},
                                                        {10, &P::setWindowOrigin},
                                                        {11, &P::setViewportSize},
                                                        {12, &P::setViewportOrigin},
                                                        {15, &P::setPixel},
                                                        {17, &P::setMapMode},
                                                        {18, &P::setBackMode},
                                                        {19, &P::setFillMode},
                                                        {20, &P::setRasterOperation},
                                                        {22, &P::setTextAlign},
                                                        {24, &P::setTextColor},
                                                        {25, &P::setBackColor},
                                                        {27, &P::moveTo},
                                                        {26, &P::moveClip},
                                                        {29, &P::excludeClip},
                                                        {30, &P::intersectClip},
                                                        {31, &P::scaleViewport},
                                                        {32, &P::scaleWindow},
                                                        {33, &P::save},
                                                        {34, &P::restore},
                                                        {35, &P::setWorld},
                                                        {36, &P::modifyWorld},
                                                        {37, &P::select},
                                                        {38, &P::createPen},
                                                        {39, &P::createBrush},
                                                        {40, &P::deleteObject},
                                                        {41, &P::angleArc},
                                                        {42, &P::ellipse},
                                                        {43, &P::rectangle},
                                                        {44, &P::roundRectangle},
                                                        {45, &P::arc},
                                                        {46, &P::chord},
                                                        {47, &P::pie},
                                                        {54, &P::lineTo},
                                                        {55, &P::arcTo},
                                                        {56, &P::polyDraw<false>},
                                                        {57, &P::setArcDirection},
                                                        {58, &P::setMiterLimit},
                                                        {59, &P::beginPath},
                                                        {60, &P::endPath},
                                                        {61, &P::closeFigure},
                                                        {62, &P::fillPath},
                                                        {63, &P::strokeAndFillPath},
                                                        {64, &P::strokePath},
                                                        {67, &P::selectClipPath},
                                                        {68, &P::abortPath},
                                                        {71, &P::fillRegion},
                                                        {74, &P::paintRegion},
                                                        {75, &P::selectClipRegion},
                                                        {76, &P::bitBlit},
                                                        {77, &P::stretchBlit},
                                                        {78, &P::maskBlit},
                                                        {79, &P::parallelogramBlit},
                                                        {80, &P::setDibToDevice},
                                                        {81, &P::stretchDib},
                                                        {82, &P::createFont},
                                                        {83, &P::textOutNarrow},
                                                        {84, &P::textOutWide},
                                                        {85, &P::polyBezier<true>},
                                                        {86, &P::polygon<true>},
                                                        {87, &P::polyline<true>},
                                                        {88, &P::polyBezierTo<true>},
                                                        {89, &P::polylineTo<true>},
                                                        {90, &P::polyPolyline<true>},
                                                        {91, &P::polyPolygon<true>},
                                                        {92, &P::polyDraw<true>},
                                                        {93, &P::createMonoBrush},
                                                        {94, &P::createPatternBrush},
                                                        {95, &P::extCreatePen},
                                                        {108, &P::smallTextOut},
                                                        {114, &P::alphaBlend},
                                                        {116, &P::transparentBlit},
                                                        {118, &P::gradientFill}};
    return table;
}

} // namespace

Played playEmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
               QImage& image) {
    return EmfPlayer(header, fonts, image).play(std::as_bytes(file), header.records);
}

} // namespace tarsel::decoder
