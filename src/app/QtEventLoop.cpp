// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtEventLoop.h"

#include "base/ErrorSubject.h"

#include <QGuiApplication>
#include <utility>

namespace tarsel {

void QtEventLoop::yield() {
    const ErrorSubject none{QString()}; // handlers of input don't work on the caller's file
    QCoreApplication::processEvents();
}

void QtEventLoop::setBusyPointer(bool busy) {
    if (busy == std::exchange(m_busy, busy))
        return;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

} // namespace tarsel
