// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/CurrentScan.h"

namespace tarsel {

void CurrentScan::start(FolderScan::Request request) {
    retire();
    const int number = ++m_number;
    const auto fetch = [this, number] {
        if (m_scan && number == m_number)
            m_deliver(*m_scan);
    };
    m_scan = std::make_unique<FolderScan>(
        std::move(request), [this, fetch] { QMetaObject::invokeMethod(this, fetch, Qt::QueuedConnection); });
}

/// A scan ends when the file in work is done, which may take its time.
void CurrentScan::retire() {
    std::erase_if(m_retired, [](const auto& scan) { return scan->hasEnded(); });
    if (!m_scan)
        return;
    m_scan->stop();
    m_retired.push_back(std::move(m_scan));
}

} // namespace tarsel
