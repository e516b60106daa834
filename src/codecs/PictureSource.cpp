// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureSource.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"
#include "bytes/Descriptor.h"

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr std::int64_t startSize = std::int64_t(256) * 1024;

} // namespace

struct PictureSource::State {
    Descriptor file; ///< none for bytes in memory
    QString path;
    std::int64_t size = 0;
    std::mutex mutex; ///< of the two that follow
    std::optional<QByteArray> start;
    std::optional<QByteArray> all;
    std::mutex findingMutex; ///< of the finding
    std::any finding;
};

PictureSource::PictureSource(QByteArray bytes) : m_state(std::make_shared<State>()) {
    m_state->size = bytes.size();
    m_state->all = std::move(bytes);
}

PictureSource PictureSource::ofFile(const QString& path) {
    PictureSource source{QByteArray()};
    source.m_state->all.reset();
    // A descriptor of our own: that of Qt's file is opened and closed where the thread sanitizer doesn't
    // look.
    const std::unique_ptr<QFile> opened = openRegularFile(path);
    source.m_state->file = Descriptor(::fcntl(opened->handle(), F_DUPFD_CLOEXEC, 0));
    if (!source.m_state->file.isOpen())
        failForErrno(errno, path);
    source.m_state->path = path;
    source.m_state->size = opened->size();
    return source;
}

std::int64_t PictureSource::size() const {
    return m_state->size;
}

std::int64_t PictureSource::read(std::int64_t at, void* target, std::int64_t count) const {
    if (at < 0 || at >= m_state->size || count <= 0)
        return 0;
    count = std::min(count, m_state->size - at);
    if (!m_state->file.isOpen()) {
        std::memcpy(target, m_state->all->constData() + at, std::size_t(count));
        return count;
    }
    std::int64_t done = 0;
    while (done < count) {
        const ssize_t got = ::pread(m_state->file.number(), static_cast<char*>(target) + done,
                                    std::size_t(count - done), at + done);
        if (got == 0 || (got < 0 && errno != EINTR))
            break;
        done += std::max<ssize_t>(got, 0);
    }
    return done;
}

QByteArray PictureSource::bytes(std::int64_t at, std::int64_t count) const {
    if (at < 0 || at >= m_state->size || count <= 0)
        return {};
    QByteArray bytes(qsizetype(std::min(count, m_state->size - at)), Qt::Uninitialized);
    bytes.truncate(qsizetype(read(at, bytes.data(), bytes.size())));
    return bytes;
}

QByteArray PictureSource::start() const {
    const std::lock_guard lock(m_state->mutex);
    if (!m_state->start)
        m_state->start = bytes(0, startSize);
    return *m_state->start;
}

QByteArray PictureSource::all() const {
    const std::lock_guard lock(m_state->mutex);
    if (!m_state->all) {
        if (m_state->size > largestReadAtOnce)
            fail(ErrorNumber::UnreadableFile,
                 QCoreApplication::translate("PictureSource",
                                             "%1: a file of %2 MB is too large for its format")
                     .arg(m_state->path, QString::number(m_state->size >> 20)));
        m_state->all = bytes(0, m_state->size);
    }
    return *m_state->all;
}

ByteSource PictureSource::byteSource() const {
    const auto read = [source = *this](std::int64_t at, void* target, std::int64_t count) {
        return source.read(at, target, count);
    };
    return {read, size()};
}

std::mutex& PictureSource::findingMutex() const {
    return m_state->findingMutex;
}

std::any& PictureSource::keptFinding() const {
    return m_state->finding;
}

} // namespace tarsel
