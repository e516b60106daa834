// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/FolderScan.h"

#include <QObject>
#include <functional>
#include <memory>
#include <vector>

namespace tarsel {

/// The scan whose deliveries count. What a scan that has been replaced still sends is dropped, and nobody
/// waits for its end.
class CurrentScan final : public QObject {
    Q_OBJECT
public:
    /// `deliver` is called on this thread when the scan has something to fetch, and once in a while when it
    /// has nothing, woken by a scan that has been replaced.
    explicit CurrentScan(std::function<void(FolderScan& scan)> deliver);

    void start(FolderScan::Request request);
    void retire();
    FolderScan* get() const { return m_scan.get(); } ///< null when there is none

Q_SIGNALS:
    void woken(); ///< from any thread

private:
    const std::function<void(FolderScan&)> m_deliver;
    std::unique_ptr<FolderScan> m_scan;
    std::vector<std::unique_ptr<FolderScan>> m_retired; ///< stopped, with a file still in work
};

} // namespace tarsel
