// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FolderListing.h"

#include <utility>

namespace tarsel {

FolderListing::FolderListing(FolderView& view) : m_view(view) {
    m_repeat.setInterval(0);
    connect(&m_repeat, &QTimer::timeout, this, &FolderListing::stopRunning);
}

void FolderListing::request(const QString& folder) {
    m_wanted = folder;
    m_view.FolderChanging = true;
    if (m_running)
        m_repeat.start();
    else
        QMetaObject::invokeMethod(this, &FolderListing::run, Qt::QueuedConnection);
}

void FolderListing::stop() {
    m_wanted.reset();
    m_view.FolderChanging = m_running;
    if (m_running)
        m_repeat.start();
}

void FolderListing::stopRunning() {
    m_view.FolderChanging = true;
}

void FolderListing::run() {
    if (m_running)
        return;
    m_running = true;
    while (m_wanted) {
        m_repeat.stop();
        const QString folder = *std::exchange(m_wanted, std::nullopt);
        m_view.subShowFilesInFolder(folder);
    }
    m_repeat.stop();
    m_running = false;
}

} // namespace tarsel
