// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/CodePages.h"
#include "decoder/GdiBitmap.h"
#include "decoder/GdiCanvas.h"
#include "decoder/MetafilePlayers.h"
#include "decoder/MetafileRecord.h"

#include <algorithm>
#include <map>

namespace tarsel::decoder {

namespace {

/// One code of two bytes a function. Parameters come in the reverse order of the function's.
class WmfPlayer {
public:
    WmfPlayer(const MetafileHeader& header, const FontShelf& fonts, QImage& image) :
        m_canvas(image, QTransform(), fonts) {
        GdiState& state = m_canvas.state();
        state.viewportSize = QPointF(image.width(), image.height());
        state.windowOrigin = QPointF(header.left, header.top);
        state.windowSize = QPointF(header.right - header.left, header.bottom - header.top);
        state.isBackOpaque = true;
    }

    Played play(std::span<const std::byte> file, std::int64_t at) {
        const ByteReader reader(file, ByteOrder::Little);
        bool isAnyKnown = false;
        for (;;) {
            const std::int64_t size = std::int64_t(reader.dword(at).value_or(0)) * 2;
            const auto function = reader.word(at + 4);
            if (size < headSize || !function || *function == 0)
                return !isAnyKnown ? Played::Nothing : function == 0 ? Played::All : Played::Part;
            const std::int64_t room = std::min(size, reader.size() - at);
            const auto step = steps().find(*function);
            if (step != steps().end())
                (this->*step->second)(MetafileRecord(*reader.slice(at + headSize, room - headSize)));
            isAnyKnown = isAnyKnown || step != steps().end();
            at += size;
        }
    }

private:
    static constexpr std::int64_t headSize = 6;
    using Record = const MetafileRecord&;
    using Step = void (WmfPlayer::*)(Record);

    GdiState& state() { return m_canvas.state(); }

    /// Two numbers, y first.
    static QPointF point(Record record, int at = 0) {
        return {double(record.int16At(at + 2)), double(record.int16At(at))};
    }
    /// Bottom, right, top, left.
    static QRectF box(Record record, int at = 0) { return {point(record, at + 4), point(record, at)}; }
    static QPainterPath boxPath(Record record) {
        QPainterPath path;
        path.addRect(box(record).normalized());
        return path;
    }

    void setBackMode(Record r) { state().isBackOpaque = r.wordAt(0) == 2; }
    void setRasterOperation(Record r) { state().rasterOperation = int(r.wordAt(0)); }
    void setFillMode(Record r) { state().fillsWinding = r.wordAt(0) == 2; }
    void setTextAlign(Record r) { state().textAlign = r.wordAt(0); }
    void setBackColor(Record r) { state().backColor = colorOf(r.dwordAt(0)); }
    void setTextColor(Record r) { state().textColor = colorOf(r.dwordAt(0)); }
    void setWindowOrigin(Record r) { state().windowOrigin = point(r); }
    void setWindowSize(Record r) { state().windowSize = point(r); }
    void moveWindow(Record r) { state().windowOrigin += point(r); }
    /// Denominator and numerator of y, then of x.
    void scaleWindow(Record r) {
        const QPointF by = point(r), to = point(r, 4);
        if (by.x() != 0 && by.y() != 0)
            state().windowSize = {state().windowSize.x() * to.x() / by.x(),
                                  state().windowSize.y() * to.y() / by.y()};
    }
    void save(Record) { m_canvas.save(); }
    void restore(Record r) { m_canvas.restore(r.int16At(0)); }

    void moveTo(Record r) { state().position = point(r); }
    void lineTo(Record r) {
        m_canvas.continueShape(linesThrough(std::vector{state().position, point(r)}, false));
        state().position = point(r);
    }
    void rectangle(Record r) { m_canvas.drawShape(boxPath(r)); }
    void ellipse(Record r) {
        QPainterPath path;
        path.addEllipse(box(r).normalized());
        m_canvas.drawShape(path);
    }
    void roundRectangle(Record r) {
        const QPointF corner = point(r);
        QPainterPath path;
        path.addRoundedRect(box(r, 4).normalized(), std::abs(corner.x()) / 2, std::abs(corner.y()) / 2);
        m_canvas.drawShape(path);
    }
    void drawArc(Record r, GdiCanvas::ArcKind kind) {
        m_canvas.arc(box(r, 8).normalized(), point(r, 4), point(r), kind);
    }
    void arc(Record r) { drawArc(r, GdiCanvas::ArcKind::Open); }
    void chord(Record r) { drawArc(r, GdiCanvas::ArcKind::Chord); }
    void pie(Record r) { drawArc(r, GdiCanvas::ArcKind::Pie); }

    void polygon(Record r) { m_canvas.drawShape(linesThrough(r.pointsAt(2, r.wordAt(0), true), true)); }
    void polyline(Record r) {
        m_canvas.drawShape(linesThrough(r.pointsAt(2, r.wordAt(0), true), false), false);
    }
    void polyPolygon(Record r) {
        const unsigned count = r.wordAt(0);
        std::int64_t at = 2 + std::int64_t(count) * 2;
        QPainterPath path;
        for (unsigned i = 0; i < count && at < r.size(); ++i) {
            const unsigned points = r.wordAt(2 + std::int64_t(i) * 2);
            path.addPath(linesThrough(r.pointsAt(at, points, true), true));
            at += std::int64_t(points) * 4;
        }
        m_canvas.drawShape(path);
    }
    void setPixel(Record r) { m_canvas.setPixel(point(r, 4), colorOf(r.dwordAt(0))); }

    void intersectClip(Record r) { m_canvas.clip(boxPath(r), ClipMode::Intersect); }
    void excludeClip(Record r) { m_canvas.exclude(box(r)); }
    void selectClip(Record r) {
        if (const auto* region = objectAt<GdiRegion>(r.wordAt(0)))
            m_canvas.clip(region->outline, ClipMode::Replace);
        else
            m_canvas.resetClip();
    }
    void moveClip(Record r) { m_canvas.moveClip(point(r)); }
    void fillRegion(Record r) {
        const auto* region = objectAt<GdiRegion>(r.wordAt(0));
        const auto* brush = objectAt<GdiBrush>(r.wordAt(2));
        if (region && brush)
            m_canvas.fillRegion(region->outline, *brush);
    }
    void paintRegion(Record r) {
        if (const auto* region = objectAt<GdiRegion>(r.wordAt(0)))
            m_canvas.fillRegion(region->outline, state().brush);
    }

    // Objects

    /// In the first free place of the table.
    void create(GdiObject object) {
        constexpr std::size_t maxObjects = 65536;
        const auto isFree = [](const GdiObject& place) { return place.index() == 0; };
        const auto place = std::ranges::find_if(m_objects, isFree);
        if (place != m_objects.end())
            *place = std::move(object);
        else if (m_objects.size() < maxObjects)
            m_objects.push_back(std::move(object));
    }
    template <class Object>
    const Object* objectAt(unsigned index) const {
        return index < m_objects.size() ? std::get_if<Object>(&m_objects[index]) : nullptr;
    }
    void createPen(Record r) { create(penOf(r.wordAt(0), r.int16At(2), r.dwordAt(6))); }
    void createBrush(Record r) { create(brushOf(r.wordAt(0), r.dwordAt(2), r.wordAt(6))); }
    void createFont(Record r) {
        LogicalFont font{r.int16At(0), r.int16At(2), r.int16At(4), r.int16At(8), r.byteAt(10),
                         r.byteAt(11), r.byteAt(12), r.byteAt(13), r.byteAt(17), {}};
        font.face = QString::fromLatin1(r.bytesAt(18, 32).constData());
        create(fontOf(font));
    }
    void createPalette(Record) { create(GdiPalette{}); }
    /// .., count of bands at 10, bounds at 14: left, top, right, bottom. A band: count of numbers, top,
    /// bottom, left and right of its rectangles, the count again.
    void createRegion(Record r) {
        GdiRegion region;
        region.outline.setFillRule(Qt::WindingFill);
        std::int64_t at = 22;
        for (unsigned band = r.wordAt(10); band > 0 && at < r.size(); --band) {
            const unsigned count = r.wordAt(at);
            for (std::int64_t side = at + 6; side + 4 <= std::min(at + 6 + 2 * count, r.size()); side += 4)
                region.outline.addRect(QRectF(QPointF(r.int16At(side), r.int16At(at + 2)),
                                              QPointF(r.int16At(side + 2), r.int16At(at + 4)))
                                           .normalized());
            at += 8 + 2 * std::int64_t(count);
        }
        if (region.outline.isEmpty())
            region.outline.addRect(QRectF(r.pointAt(14, true), r.pointAt(18, true)).normalized());
        create(region);
    }
    /// Kind of brush, use of the palette, bitmap.
    void createDibBrush(Record r) {
        create(GdiBrush{Qt::TexturePattern, Qt::black, packedDibImage(r.bytesAt(4, r.size()))});
    }
    void createPatternBrush(Record r) {
        create(GdiBrush{Qt::TexturePattern, Qt::black, deviceBitmapImage(r.bytesAt(0, r.size()), 32),
                        r.byteAt(9) == 1});
    }
    void select(Record r) {
        const unsigned index = r.wordAt(0);
        if (const auto* pen = objectAt<GdiPen>(index))
            state().pen = *pen;
        if (const auto* brush = objectAt<GdiBrush>(index))
            state().brush = *brush;
        if (const auto* font = objectAt<GdiFont>(index))
            state().font = *font;
        if (const auto* region = objectAt<GdiRegion>(index))
            m_canvas.clip(region->outline, ClipMode::Replace);
    }
    void deleteObject(Record r) {
        if (r.wordAt(0) < m_objects.size())
            m_objects[r.wordAt(0)] = {};
    }

    // Text and bitmaps

    std::vector<char32_t> characters(const QByteArray& text) {
        return decodedText(state().font.charset, text);
    }
    void textOut(Record r) {
        const std::int64_t length = r.wordAt(0);
        GdiText text;
        text.characters = characters(r.bytesAt(2, length));
        text.reference = point(r, int(2 + (length + 1) / 2 * 2));
        m_canvas.drawText(text);
    }
    /// Place, length, options, a box when they ask for it, text, distances.
    void extTextOut(Record r) {
        constexpr unsigned opaque = 2, clipped = 4;
        const std::int64_t length = r.wordAt(4);
        const unsigned options = r.wordAt(6);
        GdiText text;
        text.reference = point(r);
        text.fillsBox = options & opaque;
        text.isClipped = options & clipped;
        std::int64_t at = 8;
        if (options & (opaque | clipped)) {
            text.box = QRectF(r.pointAt(at, true), r.pointAt(at + 4, true));
            at += 8;
        }
        text.characters = characters(r.bytesAt(at, length));
        at += (length + 1) / 2 * 2;
        for (std::int64_t i = 0; i < length && at + 2 * i + 2 <= r.size(); ++i)
            text.advances.push_back(r.int16At(at + 2 * i));
        m_canvas.drawText(text);
    }

    /// Rectangles of bit blits: height, width, y, x at `at`.
    static QRectF placed(Record r, int at) {
        return {point(r, at + 4), QSizeF(r.int16At(at + 2), r.int16At(at))};
    }
    void draw(std::uint32_t operation, const QRectF& target, const QRectF& source, QImage image) {
        m_canvas.blit({target, std::move(image), source, operation});
    }
    void patternBlit(Record r) { draw(r.dwordAt(0), placed(r, 4), {}, {}); }
    /// Operation, source y and x, (when there is no bitmap a word that is not used,) height, width, y, x.
    void bitBlit(Record r, bool isDib) {
        const bool hasBitmap = r.size() > 18;
        if (!hasBitmap)
            return draw(r.dwordAt(0), placed(r, 10), {}, {});
        const QRectF target = placed(r, 8);
        const QByteArray bitmap = r.bytesAt(16, r.size());
        draw(r.dwordAt(0), target, {point(r, 4), target.size()},
             isDib ? packedDibImage(bitmap) : deviceBitmapImage(bitmap, 10));
    }
    void deviceBitBlit(Record r) { bitBlit(r, false); }
    void dibBitBlit(Record r) { bitBlit(r, true); }
    /// The same with the height and width of the source after the operation.
    void stretchBlit(Record r, bool isDib) {
        const bool hasBitmap = r.size() > 22;
        if (!hasBitmap)
            return draw(r.dwordAt(0), placed(r, 14), {}, {});
        const QByteArray bitmap = r.bytesAt(20, r.size());
        draw(r.dwordAt(0), placed(r, 12), placed(r, 4),
             isDib ? packedDibImage(bitmap) : deviceBitmapImage(bitmap, 10));
    }
    void deviceStretchBlit(Record r) { stretchBlit(r, false); }
    void dibStretchBlit(Record r) { stretchBlit(r, true); }
    /// With the use of the palette after the operation.
    void stretchDib(Record r) {
        const QImage image = packedDibImage(r.bytesAt(22, r.size()));
        QRectF source = placed(r, 6);
        // the source's y counts from the bottom
        source.moveTop(image.height() - source.top() - source.height());
        draw(r.dwordAt(0), placed(r, 14), source, image);
    }
    /// Use of the palette, rows, first row, source y, x, height, width, y, x.
    void setDibToDevice(Record r) {
        const QRectF target = placed(r, 10);
        draw(0x00CC0020, target, {point(r, 6), target.size()}, packedDibImage(r.bytesAt(18, r.size())));
    }

    static const std::map<std::uint16_t, Step>& steps() {
        using P = WmfPlayer;
        static const std::map<std::uint16_t, Step> table = {{0x0102, &P::setBackMode},
                                                            {0x0104, &P::setRasterOperation},
                                                            {0x0106, &P::setFillMode},
                                                            {0x012E, &P::setTextAlign},
                                                            {0x0201, &P::setBackColor},
                                                            {0x0209, &P::setTextColor},
                                                            {0x020B, &P::setWindowOrigin},
                                                            {0x020C, &P::setWindowSize},
                                                            {0x020F, &P::moveWindow},
                                                            {0x0410, &P::scaleWindow},
                                                            {0x001E, &P::save},
                                                            {0x0127, &P::restore},
                                                            {0x0214, &P::moveTo},
                                                            {0x0213, &P::lineTo},
                                                            {0x041B, &P::rectangle},
                                                            {0x0418, &P::ellipse},
                                                            {0x061C, &P::roundRectangle},
                                                            {0x0817, &P::arc},
                                                            {0x0830, &P::chord},
                                                            {0x081A, &P::pie},
                                                            {0x0324, &P::polygon},
                                                            {0x0325, &P::polyline},
                                                            {0x0538, &P::polyPolygon},
                                                            {0x041F, &P::setPixel},
                                                            {0x0416, &P::intersectClip},
                                                            {0x0415, &P::excludeClip},
                                                            {0x012C, &P::selectClip},
                                                            {0x0220, &P::moveClip},
                                                            {0x0228, &P::fillRegion},
                                                            {0x012B, &P::paintRegion},
                                                            {0x02FA, &P::createPen},
                                                            {0x02FC, &P::createBrush},
                                                            {0x02FB, &P::createFont},
                                                            {0x00F7, &P::createPalette},
                                                            {0x06FF, &P::createRegion},
                                                            {0x0142, &P::createDibBrush},
                                                            {0x01F9, &P::createPatternBrush},
                                                            {0x012D, &P::select},
                                                            {0x01F0, &P::deleteObject},
                                                            {0x0521, &P::textOut},
                                                            {0x0A32, &P::extTextOut},
                                                            {0x061D, &P::patternBlit},
                                                            {0x0922, &P::deviceBitBlit},
                                                            {0x0940, &P::dibBitBlit},
                                                            {0x0B23, &P::deviceStretchBlit},
                                                            {0x0B41, &P::dibStretchBlit},
                                                            {0x0F43, &P::stretchDib},
                                                            {0x0D33, &P::setDibToDevice}};
        return table;
    }

    GdiCanvas m_canvas;
    std::vector<GdiObject> m_objects;
};

} // namespace

Played playWmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
               QImage& image) {
    return WmfPlayer(header, fonts, image).play(std::as_bytes(file), header.records);
}

} // namespace tarsel::decoder
