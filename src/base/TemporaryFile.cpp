// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TemporaryFile.h"

#include "base/TrappedError.h"

#include <QMutex>
#include <QSet>
#include <atomic>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <random>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr char prefix[] = ".tarsel-";
constexpr char suffix[] = ".part";

QByteArray freshName() {
    static std::atomic<quint64> next = (quint64(std::random_device{}()) << 32) | std::random_device{}();
    return prefix + QByteArray::number(quint64(next++), 16) + suffix;
}

bool isOurs(const QByteArray& name) {
    return name.startsWith(prefix) && name.endsWith(suffix);
}

bool lockIfFree(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// Removes a temporary file whose lock is free: its maker is dead.
void removeIfAbandoned(int directory, const char* name) {
    const int file = ::openat(directory, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return;
    struct stat facts = {};
    if (::fstat(file, &facts) == 0 && S_ISREG(facts.st_mode) && lockIfFree(file))
        ::unlinkat(directory, name, 0);
    ::close(file);
}

void removeAbandonedFiles(const QByteArray& folder, int directory) {
    DIR* listing = ::opendir(folder.constData());
    if (!listing)
        return;
    while (const dirent* entry = ::readdir(listing)) {
        if (isOurs(QByteArray::fromRawData(entry->d_name, qsizetype(qstrlen(entry->d_name)))))
            removeIfAbandoned(directory, entry->d_name);
    }
    ::closedir(listing);
}

/// True for the first call with this folder in this process (a forked child is one of its own): a batch into
/// a large folder lists it once.
bool firstVisit(const QByteArray& folder) {
    static QMutex mutex;
    static QSet<QByteArray> visited;
    const QByteArray visit = QByteArray::number(::getpid()) + ' ' + folder;
    const QMutexLocker locker(&mutex);
    if (visited.contains(visit))
        return false;
    visited.insert(visit);
    return true;
}

} // namespace

TemporaryFile::TemporaryFile(const QByteArray& folder, mode_t mode, const QString& shown) :
    m_folder(folder), m_directory(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (m_directory < 0 && (errno == ENOENT || errno == ENOTDIR))
        fail(ErrorNumber::PathNotFound, shown);
    if (m_directory < 0 && errno == EACCES) // a folder that may be written in but not listed
        m_directory = ::open(folder.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC);
    if (m_directory < 0)
        failForErrno(errno, shown);
    if (firstVisit(m_folder))
        removeAbandonedFiles(m_folder, m_directory);
    m_file = ::openat(m_directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (m_file < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT))
        openNamed(mode);
    if (m_file < 0) {
        const int reason = errno;
        ::close(m_directory);
        failForErrno(reason, shown);
    }
    lockIfFree(m_file);
}

void TemporaryFile::openNamed(mode_t mode) {
    do {
        m_name = freshName();
        m_file = ::openat(m_directory, m_name.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode);
    } while (m_file < 0 && errno == EEXIST);
    if (m_file < 0)
        m_name.clear();
}

TemporaryFile::~TemporaryFile() {
    if (!m_name.isEmpty())
        ::unlinkat(m_directory, m_name.constData(), 0);
    ::close(m_file);
    ::close(m_directory);
}

QByteArray TemporaryFile::path() const {
    return m_name.isEmpty() ? "/proc/self/fd/" + QByteArray::number(m_file) : m_folder + '/' + m_name;
}

void TemporaryFile::sync() const {
    if (::fsync(m_file) != 0)
        throw errno;
}

void TemporaryFile::nameIt() {
    const QByteArray unnamed = path();
    QByteArray name = freshName();
    while (::linkat(AT_FDCWD, unnamed.constData(), m_directory, name.constData(), AT_SYMLINK_FOLLOW) != 0) {
        if (errno != EEXIST)
            throw errno;
        name = freshName();
    }
    m_name = name;
}

void TemporaryFile::putInPlace(const QByteArray& name, bool replaces) {
    const QByteArray unnamed = path();
    // A file that replaces nothing gets its name at once: there is no moment in which a kill leaves debris.
    const bool linked =
        !replaces && m_name.isEmpty() &&
        ::linkat(AT_FDCWD, unnamed.constData(), m_directory, name.constData(), AT_SYMLINK_FOLLOW) == 0;
    if (!linked) {
        if (m_name.isEmpty())
            nameIt();
        if (::renameat(m_directory, m_name.constData(), m_directory, name.constData()) != 0)
            throw errno;
        m_name.clear();
    }
    // The old or the new file is whole either way; this makes sure that it is the new one after a power cut.
    (void)::fsync(m_directory);
}

} // namespace tarsel
