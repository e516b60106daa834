// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QRect>
#include <QWidget>
#include <vector>

namespace tarsel {

/// The program's windows, taken off the screen by the constructor. Those that wait for an answer stay: hiding
/// them would answer.
class HiddenWindows {
public:
    /// `stacking` has windows of the screen from the lowest up. Of those that it lacks, owners come first.
    explicit HiddenWindows(const std::vector<WId>& stacking);

    /// The window manager has taken their frames off too: none of them is in its `stacking`.
    bool areGone(const std::vector<WId>& stacking) const;

    /// Shows them again at their places, one above the other as they were, each with its state and focus.
    /// `main` isn't minimised then.
    void showAgain(const QWidget& main);

private:
    struct Hidden {
        QPointer<QWidget> window;
        QPointer<QWidget> focus;
        QRect place; ///< without the frame
        Qt::WindowStates state;
    };

    static void show(const Hidden& hidden, Qt::WindowStates state);

    std::vector<Hidden> m_windows; ///< from the lowest up
};

} // namespace tarsel
