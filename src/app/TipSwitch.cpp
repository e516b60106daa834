// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TipSwitch.h"

#include "configuration/ConfigRecord.h"

#include <QEvent>
#include <QWidget>

namespace tarsel {

bool TipSwitch::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = event->type() == QEvent::ToolTip ? qobject_cast<QWidget*>(watched) : nullptr;
    return widget && ConfigRecord.ShowTips != 1 && !widget->toolTip().isEmpty();
}

} // namespace tarsel
