// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/HeldKey.h"

#include <QKeyEvent>
#include <utility>

namespace tarsel {

HeldKey::HeldKey(Qt::Key key, QAction& action, QWidget& window) :
    QObject(&window), m_key(key), m_action(action) {
    window.installEventFilter(this);
}

bool HeldKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate) // the release goes to another window
        release();
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease)
        return QObject::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const bool isMeant = key.key() == m_key && (m_isHeld || (!key.modifiers() && m_action.isEnabled()));
    if (!isMeant)
        return QObject::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        m_isHeld = true;
        m_action.setChecked(true);
    } else if (!key.isAutoRepeat()) {
        release();
    }
    return true;
}

void HeldKey::release() {
    if (std::exchange(m_isHeld, false))
        m_action.setChecked(false);
}

} // namespace tarsel
