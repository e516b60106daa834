// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/RegionSelection.h"
#include "acquisition/ScreenPicture.h"

#include <QImage>
#include <QObject>

namespace tarsel {

/// What the windows over the monitors show: the screen as it was, the rectangle chosen on it, and where the
/// pointer is. Places are pixels of the picture.
class FrozenScreen final : public QObject {
    Q_OBJECT
public:
    explicit FrozenScreen(ScreenPicture screen);

    const ScreenPicture& screen() const { return m_screen; }
    /// A view of the picture's own pixels.
    const QImage& image() const { return m_image; }
    const RegionSelection& selection() const { return m_selection; }
    QPoint pointer() const { return m_pointer; }
    /// Where the magnifier is: at the pointer, or at the corner that keys have moved since.
    QPoint magnified() const { return m_magnified; }
    bool hasMagnifier() const { return m_hasMagnifier; }
    /// The area of the monitor that the pointer is on.
    QRect monitorOfPointer() const;
    /// The pixels within the rectangle; those of the pointer's monitor without one.
    Picture chosen() const;

    void press(QPoint pixel, int reach);
    void pointTo(QPoint pixel, bool square = false);
    void release();
    void selectMonitor();
    void move(QPoint by);
    void resize(QPoint by);
    void toggleMagnifier();
    /// Takes back the drag that is going on, or else the rectangle. False when there is neither.
    bool takeBack();

Q_SIGNALS:
    void changed();

private:
    /// Begins with the pointer's monitor where there is no rectangle that keys could change.
    void requireSelection();

    ScreenPicture m_screen;
    QImage m_image;
    RegionSelection m_selection;
    QPoint m_pointer; ///< in the middle of a monitor until its place is known
    QPoint m_magnified;
    bool m_hasMagnifier = true;
};

} // namespace tarsel
