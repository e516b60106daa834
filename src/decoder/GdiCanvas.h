// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "decoder/FontShelf.h"
#include "decoder/GdiObjects.h"

#include <QImage>
#include <QPainter>
#include <QTransform>
#include <array>
#include <vector>

namespace tarsel::decoder {

/// Bits of GdiState::textAlign.
enum TextAlign : unsigned {
    UpdatesPosition = 1,
    AlignRight = 2,
    AlignCenter = 6,
    AlignBottom = 8,
    AlignBaseLine = 24
};

/// What SaveDC and RestoreDC keep, but for the clip region.
struct GdiState {
    QTransform world;
    QPointF windowOrigin{0, 0}, windowSize{1, 1};
    QPointF viewportOrigin{0, 0}, viewportSize{1, 1};
    bool hasFreeAxes = true; ///< else a record that sets a size of window or viewport counts for nothing
    GdiPen pen;
    GdiBrush brush;
    GdiFont font;
    QColor textColor = Qt::black;
    QColor backColor = Qt::white;
    bool isBackOpaque = true;
    unsigned textAlign = 0;
    int rasterOperation = 13; ///< of pens and brushes; 13 replaces
    bool fillsWinding = false;
    bool arcsClockwise = false;
    double miterLimit = 10;
    QPointF position; ///< logical, where the next line starts
};

/// A text with the place of each letter; glyph numbers instead of characters when `areGlyphs`.
struct GdiText {
    QPointF reference;
    std::vector<char32_t> characters;
    bool areGlyphs = false;
    std::vector<double> advances; ///< logical; empty: the font's
    bool isClipped = false;       ///< to the box
    bool fillsBox = false;
    QRectF box;
};

/// Part of a picture that is drawn into a logical rectangle, whose sides may be negative.
struct GdiBlit {
    QRectF target;
    QImage image; ///< null for operations without a source
    QRectF source;
    std::uint32_t operation = 0x00CC0020; ///< replaces
    int opacity = 255;
};

/// How a region goes together with the one that clips: the numbers of the records.
enum class ClipMode { Intersect = 1, Unite, Exclusive, Subtract, Replace };

/// Draws what the records of a metafile say into an image, anti-aliased. Coordinates are logical ones. The
/// image starts transparent; what combines with the ground finds white where nothing was drawn.
class GdiCanvas {
public:
    /// `deviceToImage` maps the units of the viewport to pixels.
    GdiCanvas(QImage& image, const QTransform& deviceToImage, const FontShelf& fonts);

    GdiState& state() { return m_state; }
    void save();
    /// `level` -1 is the state saved last, 1 the first.
    void restore(int level);

    /// Fills and strokes, or adds to the path when one is open.
    void drawShape(const QPainterPath& logical, bool fills = true, bool strokes = true);
    /// The same without filling; goes on with the figure of an open path.
    void continueShape(const QPainterPath& logical);
    void moveTo(QPointF to); ///< starts a figure of an open path
    enum class ArcKind { Open, Chord, Pie, FromPosition };
    void arc(const QRectF& box, QPointF from, QPointF to, ArcKind kind);
    /// Degrees, counter-clockwise; a line from the position to the start is part of it.
    void angleArc(QPointF center, double radius, double start, double sweep);
    void setPixel(QPointF at, const QColor& color);
    void fillRegion(const QPainterPath& logical, const GdiBrush& brush);
    void drawText(const GdiText& text);
    void blit(const GdiBlit& blit);
    void gradient(const QRectF& box, const QColor& from, const QColor& to, bool isVertical);
    struct Corner {
        QPointF place;
        QColor color;
    };
    void gradientTriangle(const std::array<Corner, 3>& corners);

    void beginPath();
    void endPath() { m_isPathOpen = false; }
    void abortPath();
    void closeFigure();
    void drawPath(bool fills, bool strokes);
    void clipToPath(ClipMode mode);

    void clip(const QPainterPath& logical, ClipMode mode);
    /// In units of the device, as regions are.
    void clipDevice(const QPainterPath& device, ClipMode mode);
    void moveClip(QPointF logical); ///< by as much
    void exclude(const QRectF& logical);
    void resetClip();

private:
    QTransform pageTransform() const;
    QTransform transform() const { return m_state.world * pageTransform(); }
    QPainterPath toImage(const QPainterPath& logical) const;
    QImage patternOf(const GdiBrush& brush) const;
    double scale() const;
    static double within(double value);
    double sweepSign() const;
    void paint(const QPainterPath& path, bool fills, bool strokes);
    void fill(const QPainterPath& path, const GdiBrush& brush);
    bool setOperation(int operation);
    void whiten(const QRectF& area);
    QPen pen() const;
    void combineClip(const QPainterPath& path, ClipMode mode);
    QPainterPath textPath(const GdiText& text, double& width) const;
    void drawImage(const GdiBlit& blit);

    QPainter m_painter;
    QTransform m_deviceToImage;
    const FontShelf& m_fonts;
    QRectF m_area;
    GdiState m_state;
    std::vector<GdiState> m_saved;
    QPainterPath m_path; ///< in pixels
    bool m_isPathOpen = false;
    bool m_isFigureOpen = false;
};

} // namespace tarsel::decoder
