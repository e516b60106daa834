// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QPoint>
#include <QRect>

namespace tarsel {

/// A rectangle that is dragged on the display of a picture, with grips to change it, and moved by its inside.
/// Points are display pixels from the picture's corner. The corners stay in the order in which they were
/// dragged: (x1, y1) may be to the right of and below (x2, y2).
class RubberBand {
public:
    enum class Shape { Rectangle, Ellipse };
    enum class State { Idle, Armed, Dragging, Drawn, Resizing, Moving };

    /// Grips 1 to 4 are the corners (x1, y1), (x2, y1), (x1, y2), (x2, y2); 5 and 6 the middles of the edges
    /// at y1 and y2, 7 and 8 those at x1 and x2.
    struct Grip {
        QPoint place;
        bool isActive = false;
    };
    static constexpr int gripCount = 8;
    static constexpr int nothing = 0; ///< results of hit(), besides the number of a grip
    static constexpr int inside = 9;
    static constexpr int gripReach = 3; ///< a grip is hit by a point nearer than this in both directions

    void arm(Shape shape);
    /// Back to idle, all corners 0.
    void remove();
    void press(QPoint point, int reach = gripReach);
    /// The pointer moved. A move of the band that would leave the picture is not taken.
    void moveTo(QPoint point, Size picture, int reach = gripReach);
    void release();

    // --- without a pointer
    void draw(QPoint start, QPoint end, Shape shape); ///< as dragged from start to end
    bool shift(QPoint by, Size picture);              ///< false where the band would leave the picture
    /// Moves the right and the lower edge, as far as the picture reaches; the least size remains.
    void grow(QPoint by, Size picture, QPoint least = {1, 1});

    State state() const { return m_state; }
    Shape shape() const { return m_shape; }
    bool isVisible() const { return m_state > State::Armed; }
    bool isHeld() const { return isVisible() && m_state != State::Drawn; } ///< by the pressed button
    QPoint start() const { return {m_x1, m_y1}; }
    QPoint end() const { return {m_x2, m_y2}; }
    /// Right and bottom are the first pixels outside.
    QRect sorted() const;
    Grip grip(int number) const; ///< 1 to 8
    /// The grip that the pointer is on or holds, `inside`, or `nothing`.
    int presentGrip() const { return m_present; }
    /// The first active grip within reach, else `inside`, else `nothing`.
    int hit(QPoint point, int reach = gripReach) const;

private:
    void drag(QPoint point);
    bool moveStart(QPoint start, Size picture);

    State m_state = State::Idle;
    Shape m_shape = Shape::Rectangle;
    int m_x1 = 0, m_y1 = 0, m_x2 = 0, m_y2 = 0;
    int m_present = nothing;
    QPoint m_moveOffset; ///< from the first corner to where the button was pressed
};

} // namespace tarsel
