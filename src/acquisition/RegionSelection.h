// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <optional>

namespace tarsel {

/// The rectangle that is cut out of a frozen screen, in its pixels, and what pointer and keys do to it. It
/// never leaves the screen, and has at least one pixel once there is one.
class RegionSelection {
public:
    /// What the pointer holds: of a side or corner the parts of the rectangle that follow it.
    struct Grip {
        bool left = false, top = false, right = false, bottom = false;
        bool isMove() const { return left && top && right && bottom; }
        bool isNone() const { return !left && !top && !right && !bottom; }
        bool operator==(const Grip&) const = default;
    };

    explicit RegionSelection(const QRect& screen) : m_screen(screen) {}

    /// Empty before the first drag.
    const QRect& rect() const { return m_rect; }
    bool isHeld() const { return m_held.has_value(); }

    /// What a press there would hold; a side is held within `reach` pixels. None outside.
    Grip gripAt(QPoint pixel, int reach) const;
    /// Begins a new rectangle, or holds what is there.
    void press(QPoint pixel, int reach);
    /// The pointer went there; a new rectangle holds the pixels of both ends. With `square` both sides become
    /// as long as the longer one.
    void drag(QPoint pixel, bool square = false);
    /// A press without a drag leaves the rectangle as it was.
    void release();
    /// Back to what it was before the press.
    void cancel();

    void select(const QRect& area) { m_rect = area & m_screen; }
    /// By keys: the rectangle moves, its size stays.
    void move(QPoint by);
    /// By keys: the right and the lower side move.
    void resize(QPoint by);

private:
    struct Held {
        Grip grip;
        QPoint from;
        QRect before;
        bool isNew;
        bool moved = false;
    };

    QPoint within(QPoint pixel) const;
    QRect draggedNew(QPoint pixel, bool square) const;

    QRect m_screen;
    QRect m_rect;
    std::optional<Held> m_held;
};

} // namespace tarsel
