// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "imaging/fncLoadPicture.h"

#include <QPointF>
#include <QRectF>

namespace tarsel {

/// The largest size of the picture's proportions inside the container, at least 1 x 1; the picture's own size
/// while the container has none.
Size stretchedSize(Size picture, double containerWidth, double containerHeight);

/// Where a picture is drawn in its container: centred, or scrolled where it is larger. All lengths of the
/// container are device pixels. Points of the picture are continuous: pixel 0 reaches from 0 to 1.
class PicturePlacement {
public:
    PicturePlacement() = default;
    /// `stretched` fits the picture completely into the container; else one of its pixels is one of the
    /// screen.
    PicturePlacement(Size picture, Size container, bool stretched);

    bool isEmpty() const { return m_picture.width < 1; }
    Size container() const { return m_container; }
    Size drawn() const { return m_drawn; } ///< size of the picture on the screen
    QRect place() const;                   ///< of the picture in the container; parts may be outside
    double zoom() const;                   ///< percent

    /// The maximum of the scroll bars, a 16-bit number; 0 where the container shows all.
    int horizontalMaximum() const { return maximum(m_drawn.width, m_container.width); }
    int verticalMaximum() const { return maximum(m_drawn.height, m_container.height); }
    QPoint scrolled() const { return m_scrolled; }
    void scrollTo(QPoint position); ///< held between 0 and the maximum
    /// Scrolls so that a point of the picture comes as near as possible to a point of the container.
    void bring(QPointF picturePoint, QPointF containerPoint);

    QPointF toPicture(QPointF containerPoint) const;
    QPointF toContainer(QPointF picturePoint) const;
    QRectF toContainer(const QRectF& pictureArea) const;

private:
    static int maximum(int drawn, int container);

    Size m_picture;
    Size m_container;
    Size m_drawn;
    QPoint m_scrolled;
};

} // namespace tarsel
