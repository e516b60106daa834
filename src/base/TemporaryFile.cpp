// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/TemporaryFile.h"

#include "base/TrappedError.h"

#include <QCryptographicHash>
#include <QFile>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarsel {

namespace {

/// Writers share these names: each takes the first that is free, so that whoever writes next in the folder
/// knows where a dead writer can have left a file, without listing the folder.
constexpr int checkedNames = 8;

/// ".tarsel-0-1b2c3d4e5f607182.part": the check after the number keeps it apart from any file of the user.
QByteArray temporaryName(int number) {
    const QByteArray digits = QByteArray::number(number);
    const QByteArray check =
        QCryptographicHash::hash("temporary file of Tarsel JPEG " + digits, QCryptographicHash::Sha256);
    return ".tarsel-" + digits + '-' + check.toHex().left(16) + ".part";
}

bool lockIfFree(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB) == 0;
}

/// A file system that knows no locks does not keep anybody out.
bool isLockedByOther(int file) {
    return !lockIfFree(file) && errno == EWOULDBLOCK;
}

/// Whether the name still belongs to the open file: another writer can have removed it and taken the name.
bool isNameOf(int directory, const char* name, int file) {
    struct stat named = {}, opened = {};
    return ::fstatat(directory, name, &named, AT_SYMLINK_NOFOLLOW) == 0 && ::fstat(file, &opened) == 0 &&
           S_ISREG(opened.st_mode) && named.st_ino == opened.st_ino && named.st_dev == opened.st_dev;
}

/// Removes a temporary file whose lock is free: its writer is dead. Returns whether there was one.
bool removeIfAbandoned(int directory, const char* name) {
    const int file = ::openat(directory, name, O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0)
        return false;
    if (lockIfFree(file) && isNameOf(directory, name, file))
        ::unlinkat(directory, name, 0);
    ::close(file);
    return true;
}

void removeAbandonedFiles(int directory) {
    bool exists = true;
    for (int number = 0; number < checkedNames || exists; ++number)
        exists = removeIfAbandoned(directory, temporaryName(number).constData());
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
    removeAbandonedFiles(m_directory);
    m_file = ::openat(m_directory, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (m_file < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL || errno == ENOENT))
        openNamed(mode);
    if (m_file < 0) {
        const int reason = errno;
        ::close(m_directory);
        const bool folderIsClosed = reason == EACCES || reason == EPERM || reason == EROFS;
        failForErrno(reason, folderIsClosed ? QFile::decodeName(folder) : shown);
    }
    lockIfFree(m_file);
}

/// Between its creation and its lock a file looks abandoned, so the name is checked once it is locked.
void TemporaryFile::openNamed(mode_t mode) {
    constexpr int maxNames = 10000;
    for (int number = 0; m_file < 0 && number < maxNames; ++number) {
        m_name = temporaryName(number);
        m_file = ::openat(m_directory, m_name.constData(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, mode);
        if (m_file < 0 && errno != EEXIST)
            break;
        if (m_file >= 0 && (isLockedByOther(m_file) || !isNameOf(m_directory, m_name.constData(), m_file))) {
            ::close(m_file);
            m_file = -1;
            errno = EEXIST;
        }
    }
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

/// Links a file without a name to that one. Returns 0, or why it failed.
int TemporaryFile::linkAs(const QByteArray& name) const {
    const QByteArray unnamed = path();
    return ::linkat(AT_FDCWD, unnamed.constData(), m_directory, name.constData(), AT_SYMLINK_FOLLOW) == 0
               ? 0
               : errno;
}

void TemporaryFile::nameIt() {
    int number = 0;
    QByteArray name = temporaryName(number);
    while (const int reason = linkAs(name)) {
        if (reason != EEXIST)
            throw reason;
        name = temporaryName(++number);
    }
    m_name = name;
}

void TemporaryFile::putInPlace(const QByteArray& name, bool replaces) {
    // A file that replaces nothing gets its name at once: a kill never leaves debris.
    if (replaces || !m_name.isEmpty() || linkAs(name) != 0) {
        if (m_name.isEmpty())
            nameIt();
        if (::renameat(m_directory, m_name.constData(), m_directory, name.constData()) != 0)
            throw errno;
        m_name.clear();
    }
    // Either way one complete file is there; this makes sure that it is the new one after a power cut.
    (void)::fsync(m_directory);
}

/// Renames a file with a name of its own to one that nothing has. Returns 0, or why it failed.
int TemporaryFile::renameAsNew(const QByteArray& name) {
    if (::renameat2(m_directory, m_name.constData(), m_directory, name.constData(), RENAME_NOREPLACE) != 0) {
        if (errno != EINVAL && errno != ENOSYS)
            return errno;
        const int reserved =
            ::openat(m_directory, name.constData(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600);
        if (reserved < 0)
            return errno;
        ::close(reserved);
        if (::renameat(m_directory, m_name.constData(), m_directory, name.constData()) != 0) {
            const int reason = errno;
            ::unlinkat(m_directory, name.constData(), 0);
            return reason;
        }
    }
    m_name.clear();
    return 0;
}

bool TemporaryFile::putInPlaceAsNew(const QByteArray& name) {
    int reason = m_name.isEmpty() ? linkAs(name) : renameAsNew(name);
    if (reason != 0 && reason != EEXIST && m_name.isEmpty()) {
        nameIt();
        reason = renameAsNew(name);
    }
    if (reason != 0 && reason != EEXIST)
        throw reason;
    (void)::fsync(m_directory);
    return reason == 0;
}

} // namespace tarsel
