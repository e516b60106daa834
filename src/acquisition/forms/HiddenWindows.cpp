// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/forms/HiddenWindows.h"

#include <QApplication>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace tarsel {

namespace {

/// Tool tips and the like go by themselves.
bool isToBeHidden(const QWidget& window) {
    const Qt::WindowType type = window.windowType();
    return window.isVisible() && !window.isModal() &&
           (type == Qt::Window || type == Qt::Dialog || type == Qt::Tool);
}

int ownersOf(const QWidget& window) {
    const QWidget* owner = window.parentWidget();
    return owner ? 1 + ownersOf(*owner->window()) : 0;
}

std::vector<QWidget*> visibleWindows(const std::vector<WId>& stacking) {
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (isToBeHidden(*window))
            windows.push_back(window);
    std::ranges::stable_sort(windows, {}, [&](const QWidget* window) {
        return std::pair(std::ranges::find(stacking, window->internalWinId()), ownersOf(*window));
    });
    return windows;
}

} // namespace

HiddenWindows::HiddenWindows(const std::vector<WId>& stacking) {
    for (QWidget* window : visibleWindows(stacking))
        m_windows.push_back({window, window->focusWidget(), window->geometry(), window->windowState()});
    for (const Hidden& each : m_windows)
        each.window->hide();
}

bool HiddenWindows::areGone(const std::vector<WId>& stacking) const {
    return std::ranges::none_of(m_windows, [&](const Hidden& each) {
        return each.window && std::ranges::count(stacking, each.window->internalWinId()) > 0;
    });
}

void HiddenWindows::showAgain(const QWidget& main) {
    for (const Hidden& each : std::exchange(m_windows, {}))
        if (each.window)
            show(each, each.window == &main ? each.state & ~Qt::WindowMinimized : each.state);
}

/// The place is set before the window is shown: window managers choose one for a window that names none. Some
/// dialogs take another size as they open.
void HiddenWindows::show(const Hidden& hidden, Qt::WindowStates state) {
    QWidget& window = *hidden.window;
    const bool isPlaced = !(state & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized));
    window.setWindowState(state);
    if (isPlaced) {
        window.setGeometry(hidden.place);
        window.windowHandle()->setGeometry(hidden.place); // a widget doesn't pass on what it has already
    }
    window.show();
    if (isPlaced && window.geometry() != hidden.place)
        window.setGeometry(hidden.place);
    if (hidden.focus)
        hidden.focus->setFocus(); // hiding has passed it on
}

} // namespace tarsel
