// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/FrozenScreen.h"

#include <QWidget>

class QPainter;

namespace tarsel {

/// Covers one monitor with its part of the frozen screen, pixel on pixel, and lets the user drag there.
class CapturePane final : public QWidget {
    Q_OBJECT
public:
    /// `area` is the monitor's place in the picture.
    CapturePane(FrozenScreen& frozen, const QRect& area, QScreen* screen);

    const QRect& area() const { return m_area; }
    void cover(); ///< shows the pane over all of its screen

Q_SIGNALS:
    void accepted();
    void left();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPoint pixelAt(QPointF place) const;
    int reach() const; ///< pixels within which a side is held
    void showCursor();
    void drawSelection(QPainter& painter) const;
    void drawHandles(QPainter& painter, const QRect& rect) const;
    void drawSize(QPainter& painter, const QRect& rect) const;
    void drawMagnifier(QPainter& painter) const;
    void drawLabel(QPainter& painter, QPoint corner, const QString& text) const;
    QSize labelSize(const QString& text) const;

    FrozenScreen& m_frozen;
    QRect m_area;
};

} // namespace tarsel
