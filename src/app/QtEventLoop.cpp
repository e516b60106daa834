// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/QtEventLoop.h"

#include "base/ErrorSubject.h"

#include <QGuiApplication>
#include <QScopedValueRollback>
#include <QThread>
#include <utility>

namespace tarsel {

void QtEventLoop::yield() {
    const ErrorSubject none{QString()}; // handlers of input don't work on the caller's file
    const QScopedValueRollback nested(m_yields, m_yields + 1);
    QCoreApplication::processEvents();
}

int QtEventLoop::depth() const {
    return QThread::currentThread()->loopLevel() + m_yields;
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
