// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>
#include <vector>

class QWidget;

namespace tarsel {

class ActionTable;

/// Brings the focus to the panes of a window: to each by an action of its own, and from one that is on show
/// to the next by the actions showNextPane and showPreviousPane.
class PaneKeys final : public QObject {
    Q_OBJECT
public:
    PaneKeys(QWidget& window, const ActionTable& actions);

    /// `control` is the one of the pane that gets the focus; `show` brings its tab to the front. A pane
    /// without an action, null, is reached from its neighbours alone, which are in the order of these calls.
    void add(
        const char* action, QWidget& pane, QWidget& control, const std::function<void()>& show = [] {});

private:
    struct Pane {
        QWidget* pane;
        QWidget* control;
    };

    void step(int by) const;
    int current() const;

    QWidget& m_window;
    const ActionTable& m_actions;
    std::vector<Pane> m_panes;
};

} // namespace tarsel
