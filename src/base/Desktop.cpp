// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Desktop.h"

namespace tarsel {

namespace {
Desktop* currentDesktop = nullptr;
}

Desktop& desktop() {
    Q_ASSERT(currentDesktop);
    return *currentDesktop;
}

DateForms desktopDateForms() {
    return {desktop().shortDateFormat(), desktop().longTimeFormat()};
}

DesktopScope::DesktopScope(Desktop& current) : m_previous(currentDesktop) {
    currentDesktop = &current;
}

DesktopScope::~DesktopScope() {
    currentDesktop = m_previous;
}

} // namespace tarsel
