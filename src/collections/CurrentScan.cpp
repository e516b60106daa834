// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/CurrentScan.h"

namespace tarsel {

CurrentScan::CurrentScan(std::function<void(FolderScan& scan)> deliver) : m_deliver(std::move(deliver)) {
    const auto fetch = [this] {
        if (m_scan)
            m_deliver(*m_scan);
    };
    connect(this, &CurrentScan::woken, this, fetch, Qt::QueuedConnection);
}

void CurrentScan::start(FolderScan::Request request) {
    retire();
    m_scan = std::make_unique<FolderScan>(std::move(request), [this] { Q_EMIT woken(); });
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
