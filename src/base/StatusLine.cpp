// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/StatusLine.h"

namespace tarsel {

void StatusLine::setPanel(const QString& key, const QString& text) {
    QString& held = m_panels[key];
    if (held == text)
        return;
    held = text;
    Q_EMIT panelChanged(key, text);
}

} // namespace tarsel
