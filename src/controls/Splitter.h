// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSplitter>

namespace tarsel {

/// A bar between two panes. Its position is the first pane's share in percent and holds when the window's
/// size changes. While the user drags, a ghost of the bar follows the pointer; the panes are resized when the
/// button is released, so that panes that are slow to paint don't hold up the pointer. Arrow keys move the
/// bar that has the focus, Home and End bring it to its bounds.
class Splitter final : public QSplitter {
    Q_OBJECT
public:
    Splitter(Qt::Orientation orientation, QWidget* first, QWidget* second, QWidget* parent = nullptr);

    QWidget* LeftOrTopControl() const { return widget(0); }
    QWidget* RightOrBottomControl() const { return widget(1); }
    int SplitterPosition() const { return m_position; }
    /// Held between the bounds on the screen; SplitterPosition returns what was set.
    void setSplitterPosition(int percent);
    int SplitterMin() const { return m_min; }
    int SplitterMax() const { return m_max; }
    void setSplitterRange(int min, int max); ///< in percent; equal bounds fix the bar

    /// Moves the bar for the user, to a place in pixels from the start; without effect on the ghost.
    void moveBar(int place);
    void showGhost(int place); ///< -1 hides it
    int barPlace() const;
    int length() const;                ///< the room of both panes in pixels
    int withinBounds(int place) const; ///< the nearest place that the bounds allow

Q_SIGNALS:
    void positionChanged(int percent); ///< the user moved the bar

protected:
    QSplitterHandle* createHandle() override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void apply();

    int m_position = 50;
    int m_min = 10;
    int m_max = 90;
};

} // namespace tarsel
