// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtSystemServices.h"

#include "base/EventLoop.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUrl>
#include <QWidget>
#include <algorithm>
#include <utility>

namespace tarsel {

QtSystemServices::QtSystemServices(QString networkFolder) : m_networkFolder(std::move(networkFolder)) {}

bool QtSystemServices::shellOpen(const QString& target) {
    const bool isAddress = target.contains(QLatin1String("://"));
    return QDesktopServices::openUrl(isAddress ? QUrl(target) : QUrl::fromLocalFile(target));
}

/// Linux has no registration that names a browser's program: an address goes to the default handler.
QString QtSystemServices::browserPath() {
    return {};
}

bool QtSystemServices::startHidden(const QString& program, const QStringList& arguments) {
    return QProcess::startDetached(program, arguments);
}

/// On line means that an interface other than the loopback is up. Point-to-point links say "unknown".
bool QtSystemServices::isOnline() {
    const QStringList interfaces = QDir(m_networkFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(interfaces.begin(), interfaces.end(), [this](const QString& name) {
        QFile state(QStringLiteral("%1/%2/operstate").arg(m_networkFolder, name));
        if (name == QLatin1String("lo") || !state.open(QIODevice::ReadOnly))
            return false;
        const QByteArray text = state.readAll().trimmed();
        return text == "up" || text == "unknown";
    });
}

/// Looks among this program's own windows. A title such as "Success" does not prove that another program's
/// window shows the answer to a report: it could be the user's own page or document, so it is left alone.
bool QtSystemServices::closeWindowTitled(const QString& title) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible() || window->windowTitle() != title)
            continue;
        QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
        service<EventLoop>().yield();
        return true;
    }
    return false;
}

} // namespace tarsel
