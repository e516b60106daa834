// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSplitter>

namespace tarsel {

/// A bar between two panes. Its position is the first pane's share in percent and holds when the window's
/// size changes.
class Splitter final : public QSplitter {
    Q_OBJECT
public:
    Splitter(Qt::Orientation orientation, QWidget* first, QWidget* second, QWidget* parent = nullptr);

    int SplitterPosition() const { return m_position; }
    /// Held between the bounds on the screen; SplitterPosition returns what was set.
    void setSplitterPosition(int percent);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void apply();
    void takePosition();

    int m_position = 50;
};

} // namespace tarsel
