// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/RunEndNotice.h"

#include "base/ProgramIdentity.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFileInfo>
#include <QWidget>

namespace tarsel {

namespace {

/// Without a running bus, connecting would start one of its own.
bool hasSessionBus() {
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
           QFileInfo::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

/// As the Desktop Notifications Specification has it.
void sendNotification(const QString& title, const QString& text) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
        QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
    constexpr uint replacesNone = 0;
    constexpr int usualTime = -1;
    call << programIdentity::title << replacesNone << QStringLiteral("tarsel-jpeg") << title
         << text.toHtmlEscaped() << QStringList() << QVariantMap() << usualTime;
    QDBusConnection::sessionBus().send(call);
}

} // namespace

void announceRunEnd(QWidget& window, const QString& title, const QString& text) {
    if (QApplication::activeWindow())
        return;
    QApplication::alert(&window);
    if (hasSessionBus())
        sendNotification(title, text);
}

} // namespace tarsel
