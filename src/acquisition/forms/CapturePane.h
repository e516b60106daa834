// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/forms/FrozenScreen.h"

#include <QWidget>

class QPainter;

namespace tarsel {

/// Covers one monitor with its part of the frozen screen, pixel on pixel, and lets the user drag there. Where
/// the picture has another scale than the monitor, its part fills the monitor.
class CapturePane final : public QWidget {
    Q_OBJECT
public:
    /// `area` is the monitor's place in the picture.
    CapturePane(FrozenScreen& frozen, const QRect& area, QScreen* screen);

    const QRect& area() const { return m_area; }
    void cover(); ///< shows the pane over all of its screen
    /// The pointer is there, in units of all screens, though it hasn't moved yet. Nothing when it is
    /// elsewhere.
    void pointTo(QPoint place);

Q_SIGNALS:
    void accepted();
    void barMoved();   ///< by its key
    void keysWanted(); ///< the list of them, by its key
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
    /// What is drawn over the screen, in pixels of the picture.
    struct Drawn {
        QRect selection;
        QRect size;
        QRect magnifier;
    };

    double ratio() const;
    QPoint pixelOf(const QMouseEvent& event) const;
    QRect placeOf(const QRect& pixels) const;
    int reach() const; ///< pixels within which a side is held
    Drawn drawn() const;
    void updateDrawn();
    void runFocused();
    void takeBack();
    void showCursor();
    void drawSelection(QPainter& painter) const;
    void drawHandles(QPainter& painter, const QRect& rect) const;
    void drawSize(QPainter& painter) const;
    void drawMagnifier(QPainter& painter) const;
    static void drawPanel(QPainter& painter, const QRect& box);
    void drawText(QPainter& painter, const QRect& box, const QString& text) const;
    QSize labelSize(const QString& text) const;
    QString sizeText() const;
    QRect sizePlace() const;
    QString magnifierText() const;
    QRect magnifierPlace() const;
    int magnifiedPixel() const;

    FrozenScreen& m_frozen;
    QRect m_area;
    Drawn m_drawn;
};

} // namespace tarsel
