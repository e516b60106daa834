// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/ScreenshotRequest.h"

#include "base/Stop.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QTimer>
#include <QUrl>
#include <atomic>

namespace tarsel {

namespace {

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");

/// Differs from that of every other request on this program's connection.
QString newToken() {
    static std::atomic<int> requests = 0;
    return QStringLiteral("tarsel%1").arg(++requests);
}

} // namespace

ScreenshotRequest::ScreenshotRequest(bool interactive, std::chrono::milliseconds longestWait) :
    m_bus(QDBusConnection::sessionBus()), m_longestWait(longestWait), m_fault(portal) {
    if (!m_bus.isConnected()) {
        m_fault = m_bus.lastError().message();
        m_outcome = Outcome::Unreachable;
        return;
    }
    const QString token = newToken();
    const QString sender = m_bus.baseService().mid(1).replace(u'.', u'_');
    // Known before the call, so that an answer that comes at once isn't missed.
    m_handle = QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
    listenTo(m_handle);
    send({{QStringLiteral("handle_token"), token}, {QStringLiteral("interactive"), interactive}});
}

ScreenshotRequest::Outcome ScreenshotRequest::wait() {
    QDBusServiceWatcher watcher(portal, m_bus, QDBusServiceWatcher::WatchForUnregistration);
    connect(&watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        m_fault = tr("the portal has ended");
        end(Outcome::Unreachable);
    });
    QTimer::singleShot(m_longestWait, this, [this] { end(Outcome::TimedOut); });
    const std::stop_callback stopped(currentStop(), [this] {
        QMetaObject::invokeMethod(
            this, [this] { end(Outcome::Cancelled); }, Qt::QueuedConnection);
    });
    if (m_outcome == Outcome::Waiting)
        m_loop.exec();
    return m_outcome;
}

void ScreenshotRequest::takeResponse(uint response, const QVariantMap& results) {
    const QUrl address(results.value(QStringLiteral("uri")).toString());
    m_file = address.toLocalFile();
    if (response == 0 && !m_file.isEmpty())
        end(Outcome::Done);
    else
        end(response == 1 ? Outcome::Cancelled : Outcome::Refused);
}

void ScreenshotRequest::listenTo(const QString& handle) {
    m_bus.connect(portal, handle, QStringLiteral("org.freedesktop.portal.Request"),
                  QStringLiteral("Response"), this, SLOT(takeResponse(uint, QVariantMap)));
}

void ScreenshotRequest::send(const QVariantMap& options) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        portal, QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.Screenshot"), QStringLiteral("Screenshot"));
    call << QString() << options;
    auto* pending = new QDBusPendingCallWatcher(m_bus.asyncCall(call, int(m_longestWait.count())), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        const QDBusPendingReply<QDBusObjectPath> reply = *pending;
        if (reply.error().type() == QDBusError::NoReply) {
            end(Outcome::TimedOut);
        } else if (reply.isError()) {
            m_fault = reply.error().message();
            end(Outcome::Unreachable);
        } else if (reply.value().path() != m_handle) { // portals before version 0.9 name it themselves
            listenTo(reply.value().path());
        }
    });
}

void ScreenshotRequest::end(Outcome outcome) {
    if (m_outcome == Outcome::Waiting)
        m_outcome = outcome;
    m_loop.quit();
}

} // namespace tarsel
