// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/InstanceLock.h"

#include "base/FileNames.h"
#include "base/IgnoringErrors.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <sys/file.h>
#include <sys/stat.h>
#include <tuple>

namespace tarsel {

namespace {

/// A pipe would keep its reader waiting, and a folder stays for ever.
void putOddFileAside(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    if (::lstat(name.constData(), &status) != 0 || S_ISREG(status.st_mode))
        return;
    std::ignore = std::rename(name.constData(), QFile::encodeName(nameOfDamaged(path)).constData());
}

bool isGone(qint64 process) {
    return process > 0 && ::kill(pid_t(process), 0) != 0 && errno == ESRCH;
}

/// A living owner does, also one whose process can't be seen from a sandbox.
bool isHeld(const QString& path) {
    QFile file(path);
    return !file.open(QIODevice::ReadOnly) || ::flock(file.handle(), LOCK_EX | LOCK_NB) != 0;
}

/// Nothing that runs has made it.
bool isOlderThanTheStart(const QString& path) {
    struct timespec running = {};
    ::clock_gettime(CLOCK_BOOTTIME, &running);
    return QFileInfo(path).lastModified() < QDateTime::currentDateTime().addSecs(-running.tv_sec);
}

} // namespace

InstanceLock::InstanceLock(const QString& programFolder) :
    m_lock(QDir(programFolder).filePath(QStringLiteral(".lock"))) {
    // A lock is stale when its process is gone, never for its age.
    m_lock.setStaleLockTime(0);
}

bool InstanceLock::take() {
    putOddFileAside(m_lock.fileName());
    if (m_lock.tryLock() || takeOver())
        return true;
    if (m_lock.error() == QLockFile::LockFailedError)
        return false;
    logIgnored(QStringLiteral("%1: can't be locked").arg(m_lock.fileName()));
    return true;
}

/// Takes a lock that names no process of this host: a crash of the system cut it short, or the host had
/// another name. A living owner holds the file itself. One that can't be written, such as that of another
/// user, is removed when its process has gone.
bool InstanceLock::takeOver() {
    constexpr int timeToWriteIt = 200; // ms, with room to spare
    qint64 process = 0;
    QString host, program;
    if (m_lock.getLockInfo(&process, &host, &program) && host == QSysInfo::machineHostName())
        return isGone(process) && !isHeld(m_lock.fileName()) && QFile::remove(m_lock.fileName()) &&
               m_lock.tryLock();
    if (m_lock.tryLock(timeToWriteIt) || (m_lock.removeStaleLockFile() && m_lock.tryLock()))
        return true;
    const bool isUnreadable = !QFile(m_lock.fileName()).open(QIODevice::ReadOnly);
    return isUnreadable && isOlderThanTheStart(m_lock.fileName()) && QFile::remove(m_lock.fileName()) &&
           m_lock.tryLock();
}

} // namespace tarsel
