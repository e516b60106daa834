// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSplitterHandle>
#include <optional>

namespace tarsel {

class Splitter;

/// The bar of a Splitter, which turns the mouse and the keys into moves.
class SplitterBar final : public QSplitterHandle {
    Q_OBJECT
public:
    SplitterBar(Qt::Orientation orientation, Splitter& splitter);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int along(QPoint point) const;
    int legal(int place);

    Splitter& m_splitter;
    int m_grip = 0; ///< where on the bar it was taken
    std::optional<int> m_ghost;
};

} // namespace tarsel
