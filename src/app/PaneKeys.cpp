// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PaneKeys.h"

#include "controls/ActionTable.h"

#include <QWidget>

namespace tarsel {

namespace {

bool hasFocus(const QWidget& area) {
    const QWidget* focused = area.window()->focusWidget();
    return focused && (focused == &area || area.isAncestorOf(focused));
}

} // namespace

PaneKeys::PaneKeys(QWidget& window, const ActionTable& actions) :
    QObject(&window), m_window(window), m_actions(actions) {
    for (const auto& [name, by] : {std::pair("showNextPane", 1), {"showPreviousPane", -1}}) {
        m_window.addAction(&m_actions.action(name));
        connect(&m_actions.action(name), &QAction::triggered, this, [this, by] { step(by); });
    }
}

void PaneKeys::add(const char* action, QWidget& pane, QWidget& control, const std::function<void()>& show) {
    m_panes.push_back({&pane, &control});
    if (!action)
        return;
    m_window.addAction(&m_actions.action(action));
    connect(&m_actions.action(action), &QAction::triggered, this, [&control, show] {
        show();
        if (control.isVisible())
            control.setFocus(Qt::ShortcutFocusReason);
    });
}

/// The pane with the focus, which may have several controls in the round; -1 for none.
int PaneKeys::current() const {
    int found = -1;
    for (int index = int(m_panes.size()) - 1; index >= 0; --index) {
        if (hasFocus(*m_panes[size_t(index)].control))
            return index;
        if (hasFocus(*m_panes[size_t(index)].pane))
            found = index;
    }
    return found;
}

void PaneKeys::step(int by) const {
    const int count = int(m_panes.size());
    const int from = current() < 0 && by < 0 ? 0 : current();
    for (int steps = 1; steps <= count; ++steps) {
        QWidget* control = m_panes[size_t((from + by * steps + count * 2) % count)].control;
        if (control->isVisible() && control->isEnabled())
            return control->setFocus(Qt::ShortcutFocusReason);
    }
}

} // namespace tarsel
