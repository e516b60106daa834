// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "collections/FolderView.h"

#include <QObject>
#include <QTimer>
#include <optional>

namespace tarsel {

/// Lists folders one after the other: a folder that is asked for while another is being listed stops that
/// one and has its turn when it has left, so that rows of two folders never mix.
class FolderListing final : public QObject {
    Q_OBJECT
public:
    explicit FolderListing(FolderView& view);

    void request(const QString& folder);
    bool isRunning() const { return m_running; }
    /// Stops the running listing and forgets what waits.
    void stop();

private:
    void run();
    void stopRunning();

    FolderView& m_view;
    std::optional<QString> m_wanted;
    bool m_running = false;
    QTimer m_repeat; ///< a listing clears its stop flag once, when it begins: the stop is repeated
};

} // namespace tarsel
