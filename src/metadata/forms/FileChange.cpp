// SPDX-License-Identifier: GPL-3.0-or-later
#include "metadata/forms/FileChange.h"

#include "base/FailureOf.h"

#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>

namespace tarsel {

namespace {
constexpr int unnoticed = 50; ///< milliseconds for which input waits
} // namespace

FileChange::FileChange(QObject* parent) : QObject(parent) {
    m_threads.setMaxThreadCount(1);
}

FileChange::~FileChange() {
    m_threads.waitForDone();
}

void FileChange::run(const std::function<void()>& work) {
    const QScopedValueRollback running(m_isRunning, true);
    std::optional<TrappedError> failure;
    QEventLoop loop;
    bool isDone = false;
    const auto end = [&] {
        isDone = true;
        loop.quit();
    };
    m_threads.start([&] {
        failure = failureOf(work);
        QMetaObject::invokeMethod(&loop, end, Qt::QueuedConnection);
    });
    QTimer::singleShot(unnoticed, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    if (!isDone) {
        Q_EMIT slowChanged(true);
        loop.exec();
        m_threads.waitForDone(); // the program's end quits the loop as well
        Q_EMIT slowChanged(false);
    }
    if (failure)
        throw *failure;
}

} // namespace tarsel
