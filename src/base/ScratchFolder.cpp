// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ScratchFolder.h"

#include "base/IgnoringErrors.h"
#include "base/TrappedError.h"

#include <QDir>
#include <QFile>
#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr char folderPattern[] = "/tarsel-run-XXXXXX";
/// A folder without it was not made here.
constexpr char lockName[] = "/.tarsel-run.lock";

/// Whether the lock file is still that of the folder: another process may have removed both.
bool isLockOf(const QByteArray& folder, int lock) {
    struct stat named = {}, opened = {};
    return ::lstat((folder + lockName).constData(), &named) == 0 && ::fstat(lock, &opened) == 0 &&
           S_ISREG(named.st_mode) && named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

/// A folder that nobody but this user can change, and not a link to one.
bool isPrivateFolder(const QByteArray& path) {
    struct stat status = {};
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & 077) == 0;
}

void removeAll(const QByteArray& folder) {
    std::error_code error;
    std::filesystem::remove_all(folder.toStdString(), error); // removes links, follows none
    if (error)
        logIgnored(QFile::decodeName(folder) + QStringLiteral(": ") +
                   QString::fromStdString(error.message()));
}

void removeIfAbandoned(const QByteArray& folder) {
    if (!isPrivateFolder(folder))
        return;
    const int lock = ::open((folder + lockName).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (lock < 0)
        return;
    if (::flock(lock, LOCK_EX | LOCK_NB) == 0 && isLockOf(folder, lock))
        removeAll(folder);
    ::close(lock);
}

} // namespace

ScratchFolder::ScratchFolder() {
    removeAbandoned();
    // Between the making of its lock file and the lock a folder looks abandoned: then it may be gone already.
    for (QByteArray folder; m_lock < 0;) {
        folder = QFile::encodeName(QDir::tempPath()) + folderPattern;
        if (!::mkdtemp(folder.data()))
            failForErrno(errno, QDir::tempPath());
        m_lock = ::open((folder + lockName).constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, 0600);
        const int reason = errno;
        if (m_lock < 0 && reason != ENOENT) {
            ::rmdir(folder.constData());
            failForErrno(reason, QFile::decodeName(folder));
        }
        const bool isTaken = ::flock(m_lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        if (m_lock >= 0 && (isTaken || !isLockOf(folder, m_lock))) {
            ::close(m_lock);
            m_lock = -1;
        }
        m_path = QFile::decodeName(folder);
    }
}

ScratchFolder::~ScratchFolder() {
    removeAll(QFile::encodeName(m_path));
    ::close(m_lock);
}

void ScratchFolder::removeAbandoned() {
    const QDir place(QDir::tempPath(), QStringLiteral("tarsel-run-*"), QDir::NoSort,
                     QDir::Dirs | QDir::NoSymLinks);
    for (const QString& name : place.entryList())
        removeIfAbandoned(QFile::encodeName(place.filePath(name)));
}

} // namespace tarsel
