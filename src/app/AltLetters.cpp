// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/AltLetters.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarsel {

/// A key that belongs to a shortcut doesn't come as a press.
bool AltLetters::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isAltLetter = (key->modifiers() & ~Qt::ShiftModifier) == Qt::AltModifier &&
                             !key->text().isEmpty() && key->text().front().isPrint();
    const auto* widget = isAltLetter ? qobject_cast<QWidget*>(watched) : nullptr;
    return widget && widget->testAttribute(Qt::WA_InputMethodEnabled);
}

} // namespace tarsel
