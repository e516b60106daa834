// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/PicturePlacement.h"
#include "imaging/RubberBand.h"

#include <QObject>
#include <functional>
#include <optional>
#include <utility>

class QKeyEvent;
class QMouseEvent;
class QPainter;
class QWidget;

namespace tarsel {

/// Lets the user select something on the picture of a view: a region by a rubber band, a point, or a point
/// for its colour. Draws itself over the picture and takes the events of the view that are meant for it.
/// Points are display pixels of the picture, and inside it, however far the pointer goes.
class SelectionOverlay final : public QObject {
    Q_OBJECT
public:
    enum class Tool { None, Rectangle, Ellipse, Location, ColorPick };

    /// On the viewport of a view, which outlives it.
    explicit SelectionOverlay(QWidget& canvas);

    /// Removes the band, and what the user is to select next.
    void clear() { arm(Tool::None); }
    void arm(Tool tool);
    void cancel(); ///< what is selected or to be selected, if anything
    /// Something can always be selected: a drag beside the region selects another one, and while there is
    /// none, the key that cancels is left to the view.
    void setLasting() { m_isLasting = true; }
    /// Draws the band around that part of the picture, in its pixels, as if the user had.
    void select(const QRectF& area);
    Tool armed() const { return m_tool; }
    bool isHeld() const { return m_isPressed; } ///< a point or a corner, by the pressed button
    const RubberBand& band() const { return m_band; }
    QRectF selected() const { return QRectF(m_start, m_end).normalized(); } ///< pixels of the picture
    /// Says what is selected, which is given in pixels of the picture; for a picture whose pixels mean
    /// nothing to the user.
    using Wording = std::function<QString(const QRectF& selected)>;
    void setWording(Wording wording) { m_wording = std::move(wording); }
    /// Where the picture is now. The band stays on what it selects.
    void setPlacement(const PicturePlacement& placement);

    // --- events of the view; false leaves them to it
    bool press(const QMouseEvent& event);
    bool move(const QMouseEvent& event);
    bool release(const QMouseEvent& event);
    bool key(const QKeyEvent& event);
    /// In device pixels of the canvas.
    void paint(QPainter& painter) const;

    /// The pointer over the picture; nothing while the view may choose.
    std::optional<Qt::CursorShape> cursor() const;
    QString description() const; ///< for assistive programs; empty while nothing is selected

Q_SIGNALS:
    void regionChanged(QPoint start, QPoint end); ///< as dragged
    void regionSelected();                        ///< the button is released, or a key has moved the band
    void regionDropped();                         ///< by a click beside it, where a drag selects another
    void locationSelected(QPoint place);
    void colorHovered(QPoint place);
    void colorSelected(QPoint place);
    void cancelled();
    void ended(); ///< the button was released
    void cursorChanged();
    void armedChanged();

private:
    bool isForBand() const { return m_tool == Tool::Rectangle || m_tool == Tool::Ellipse; }
    bool isPoint() const { return m_tool == Tool::Location || m_tool == Tool::ColorPick; }
    bool isIdle() const { return m_tool == Tool::None && !m_band.isVisible(); }
    double ratio() const;
    int reach() const;
    QPoint onDisplay(QPointF point) const;
    QPoint displayPoint(QPointF logical) const;
    QPoint pixelPoint(QPointF logical) const;
    bool isOnPicture(QPointF logical) const;
    bool pressPoint(QPointF logical);
    void releasePoint(QPointF logical);
    void endDrag(QPointF pointer);
    void regionMoved();
    void drawCentred();
    void selectByKey(bool isShifted);
    bool handleArrow(QPoint direction, Qt::KeyboardModifiers modifiers);
    QPoint keyStep() const;
    QPoint leastSize() const;
    QSize sizeInPicture() const;
    QPoint inPicture(QPoint display) const;
    QString tag() const;
    QPoint endOnCanvas() const;
    void show();

    QWidget& m_canvas;
    PicturePlacement m_placement;
    RubberBand m_band;
    QPointF m_start, m_end; ///< of the band in the picture, for when it is drawn in another size
    Tool m_tool = Tool::None;
    bool m_isLasting = false;
    bool m_isPressed = false;
    bool m_movedByKey = false;
    bool m_isShifted = false; ///< by the last key, in its size
    QPoint m_pointer;         ///< device pixels of the canvas
    Wording m_wording;        ///< none where the size is in pixels
};

} // namespace tarsel
