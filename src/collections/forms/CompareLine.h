// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace tarsel {

/// A line from top to bottom over a picture, moved by the mouse and by keys.
class CompareLine final : public QWidget {
    Q_OBJECT
public:
    explicit CompareLine(QWidget* parent);

    /// Puts the middle of the line there.
    void placeAt(int x);

Q_SIGNALS:
    void draggedTo(int x);  ///< of the parent
    void stepped(int step); ///< in hundredths; beyond 100 to an edge

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent*) override { update(); }
    void focusOutEvent(QFocusEvent*) override { update(); }

private:
    int m_grip = 0; ///< where the mouse took the line, from its middle
};

} // namespace tarsel
