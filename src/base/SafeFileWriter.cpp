// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/SafeFileWriter.h"

#include "base/TemporaryFile.h"
#include "base/TrappedError.h"

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <optional>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr mode_t modeBits = 07777;

QByteArray folderOf(const QByteArray& path) {
    const qsizetype slash = path.lastIndexOf('/');
    return slash < 0 ? QByteArray(".") : slash == 0 ? QByteArray("/") : path.left(slash);
}

QByteArray nameOf(const QByteArray& path) {
    return path.mid(path.lastIndexOf('/') + 1);
}

/// Where a symbolic link points to, or nothing when the path is none.
std::optional<QByteArray> linkTarget(const QByteArray& path) {
    QByteArray target(PATH_MAX, Qt::Uninitialized);
    const ssize_t length = ::readlink(path.constData(), target.data(), size_t(target.size()));
    if (length < 0)
        return std::nullopt;
    target.truncate(length);
    return target.startsWith('/') ? target : folderOf(path) + '/' + target;
}

/// The path after all symbolic links of its last part. It need not exist.
QByteArray followLinks(QByteArray path, const QString& shown) {
    constexpr int longestChain = 40; // as the kernel has it
    for (int i = 0; i < longestChain; ++i) {
        const auto target = linkTarget(path);
        if (!target)
            return path;
        path = *target;
    }
    failForErrno(ELOOP, shown);
}

QString notRegular(const QString& path) {
    return QCoreApplication::translate("SafeFileWriter", "%1: not a regular file").arg(path);
}

/// Status of the file that is to be replaced, or nothing when there is none.
std::optional<struct stat> statusOfTarget(const QByteArray& path, const QString& shown) {
    struct stat status = {};
    if (::stat(path.constData(), &status) != 0) {
        if (errno == ENOENT)
            return std::nullopt;
        failForErrno(errno, shown);
    }
    if (S_ISDIR(status.st_mode))
        failForErrno(EISDIR, shown);
    if (!S_ISREG(status.st_mode))
        fail(ErrorNumber::InvalidCall, notRegular(shown));
    if (::faccessat(AT_FDCWD, path.constData(), W_OK, AT_EACCESS) != 0)
        failForErrno(errno, shown);
    return status;
}

/// Attributes of the user, and the access list: what a person or a tool attached to the file.
bool isKept(const QByteArray& attribute) {
    return attribute.startsWith("user.") || attribute == "system.posix_acl_access";
}

void copyAttributes(const QByteArray& from, int to) {
    const ssize_t size = ::listxattr(from.constData(), nullptr, 0);
    if (size <= 0)
        return;
    QByteArray names(size, '\0');
    const ssize_t listed = ::listxattr(from.constData(), names.data(), size_t(names.size()));
    names.truncate(std::max<ssize_t>(listed, 0));
    for (const QByteArray& name : names.split('\0')) {
        const ssize_t length = isKept(name) ? ::getxattr(from.constData(), name.constData(), nullptr, 0) : -1;
        if (length < 0)
            continue;
        QByteArray value(length, '\0');
        if (::getxattr(from.constData(), name.constData(), value.data(), size_t(length)) == length)
            (void)::fsetxattr(to, name.constData(), value.constData(), size_t(length), 0);
    }
}

/// Copies owner, group and mode of the old file to the new one. Where this user may not set the owner, the
/// new file is the user's own; where the group can't be set either, it has no right that others don't have.
void copyOwnership(const struct stat& status, int to) {
    mode_t mode = status.st_mode & modeBits;
    if (::fchown(to, status.st_uid, status.st_gid) != 0 && ::fchown(to, uid_t(-1), status.st_gid) != 0)
        mode &= ~mode_t(S_IRWXG) | ((mode & S_IRWXO) << 3);
    if (::fchmod(to, mode) != 0 && errno != EPERM)
        throw errno;
}

} // namespace

struct SafeFileWriter::State {
    QString shown; ///< the path as the caller spells it, for messages
    QByteArray path;
    std::optional<struct stat> replaced;
    TemporaryFile file;
    bool failed = false;
    bool committed = false;

    State(const QString& spelled, const QByteArray& target) :
        shown(spelled), path(target), replaced(statusOfTarget(target, spelled)),
        file(folderOf(target), replaced ? 0600 : 0666, spelled) {}
};

SafeFileWriter::SafeFileWriter(const QString& path) {
    if (path.isEmpty() || path.contains(QChar(u'\0')))
        fail(ErrorNumber::PathNotFound, path);
    const QByteArray target = followLinks(QFile::encodeName(path), path);
    if (nameOf(target).isEmpty())
        failForErrno(EISDIR, path);
    m_state = std::make_unique<State>(path, target);
}

SafeFileWriter::~SafeFileWriter() = default;

void SafeFileWriter::write(const QByteArray& bytes) {
    write(bytes.constData(), bytes.size());
}

void SafeFileWriter::write(const void* data, qsizetype size) {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(m_state->file.descriptor(), next, size_t(size));
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0) {
            m_state->failed = true;
            failForErrno(errno, m_state->shown);
        }
        next += written;
        size -= written;
    }
}

QString SafeFileWriter::temporaryPath() const {
    return QFile::decodeName(m_state->file.path());
}

int SafeFileWriter::descriptor() const {
    return m_state->file.descriptor();
}

template <class Step>
void SafeFileWriter::finish(Step&& putInPlace) {
    if (m_state->failed || m_state->committed)
        fail(ErrorNumber::InvalidCall, m_state->shown);
    try {
        putInPlace();
    } catch (int errnoValue) {
        m_state->failed = true;
        failForErrno(errnoValue, m_state->shown);
    }
    m_state->committed = true;
}

void SafeFileWriter::commit(const std::function<void()>& check) {
    finish([&] {
        if (m_state->replaced) {
            copyAttributes(m_state->path, descriptor());
            copyOwnership(*m_state->replaced, descriptor());
        }
        m_state->file.sync();
        if (check)
            check();
        m_state->file.putInPlace(nameOf(m_state->path), m_state->replaced.has_value());
    });
}

bool SafeFileWriter::commitAsNew() {
    bool isNew = !m_state->replaced;
    finish([&] {
        if (!isNew)
            return;
        m_state->file.sync();
        isNew = m_state->file.putInPlaceAsNew(nameOf(m_state->path));
    });
    return isNew;
}

void writeFileSafely(const QString& path, const QByteArray& bytes) {
    SafeFileWriter writer(path);
    writer.write(bytes);
    writer.commit();
}

bool writeNewFileSafely(const QString& path, const QByteArray& bytes) {
    SafeFileWriter writer(path);
    writer.write(bytes);
    return writer.commitAsNew();
}

void reportFileSizeLimitAsError() {
    (void)::signal(SIGXFSZ, SIG_IGN);
}

std::unique_ptr<QFile> openRegularFile(const QString& path) {
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        failForErrno(errno, path);
    if (S_ISDIR(status.st_mode))
        failForErrno(EISDIR, path);
    if (!S_ISREG(status.st_mode)) // a pipe or a device might never end
        fail(ErrorNumber::InvalidCall, notRegular(path));
    auto file = std::make_unique<QFile>(path);
    if (!file->open(QIODevice::ReadOnly))
        failForErrno(errno, path);
    return file;
}

QByteArray readWholeFile(const QString& path) {
    const std::unique_ptr<QFile> file = openRegularFile(path);
    QByteArray bytes = file->readAll();
    if (file->error() != QFileDevice::NoError)
        fail(ErrorNumber::InvalidCall, path + QStringLiteral(": ") + file->errorString());
    return bytes;
}

} // namespace tarsel
