// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/EditLock.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr std::chrono::milliseconds pause{10};
constexpr int mostPauses = 3000;

/// A writer may have put another file under the name while this one was waited for.
bool isStillAt(const QByteArray& path, int file) {
    struct stat held = {}, named = {};
    return ::fstat(file, &held) != 0 || ::stat(path.constData(), &named) != 0 ||
           (held.st_dev == named.st_dev && held.st_ino == named.st_ino);
}

} // namespace

EditLock::EditLock(const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    for (int pauses = 0; pauses < mostPauses; ++pauses) {
        if (m_file < 0)
            m_file = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
        if (m_file < 0)
            return;
        if (::flock(m_file, LOCK_EX | LOCK_NB) != 0) {
            if (errno != EWOULDBLOCK && errno != EINTR)
                return;
            std::this_thread::sleep_for(pause);
        } else if (isStillAt(name, m_file)) {
            return;
        } else {
            ::close(m_file);
            m_file = -1;
        }
    }
    ::close(m_file);
    fail(ErrorNumber::PermissionDenied,
         QCoreApplication::translate("EditLock", "%1 is being edited by another program").arg(path));
}

EditLock::~EditLock() {
    if (m_file >= 0)
        ::close(m_file);
}

} // namespace tarsel
