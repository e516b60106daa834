// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDBusConnection>
#include <QEventLoop>
#include <QObject>
#include <QVariantMap>
#include <chrono>

namespace tarsel {

/// One request for a picture of the screen to the desktop's portal, sent by the constructor.
class ScreenshotRequest final : public QObject {
    Q_OBJECT
public:
    enum class Outcome { Waiting, Done, Cancelled, Refused, Unreachable, TimedOut };

    /// With `interactive` the desktop asks the user what is to be on the picture.
    ScreenshotRequest(bool interactive, std::chrono::milliseconds longestWait);

    /// Lets other events of this thread run until the answer is there, no longer than the longest wait. A
    /// stop of the thread counts as cancelled.
    Outcome wait();
    const QString& file() const { return m_file; } ///< of a request that is done
    /// Why it could not be sent; the name of the portal where no reason is known.
    const QString& fault() const { return m_fault; }

private Q_SLOTS:
    void takeResponse(uint response, const QVariantMap& results);

private:
    void listenTo(const QString& handle);
    void send(const QVariantMap& options);
    void end(Outcome outcome);

    QDBusConnection m_bus;
    std::chrono::milliseconds m_longestWait;
    QEventLoop m_loop;
    QString m_handle;
    QString m_file;
    QString m_fault;
    Outcome m_outcome = Outcome::Waiting;
};

} // namespace tarsel
