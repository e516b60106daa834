// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/PictureSource.h"

#include "base/SafeFileWriter.h"
#include "base/TrappedError.h"

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <optional>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr std::int64_t StartSize = std::int64_t(256) * 1024;

} // namespace

struct PictureSource::State {
    std::unique_ptr<QFile> file; ///< null for bytes in memory
    std::int64_t size = 0;
    std::mutex mutex; ///< of the two that follow
    std::optional<QByteArray> start;
    std::optional<QByteArray> all;
};

PictureSource::PictureSource(QByteArray bytes) : m_state(std::make_shared<State>()) {
    m_state->size = bytes.size();
    m_state->all = std::move(bytes);
}

PictureSource PictureSource::ofFile(const QString& path) {
    PictureSource source{QByteArray()};
    source.m_state->all.reset();
    source.m_state->file = openRegularFile(path);
    source.m_state->size = source.m_state->file->size();
    return source;
}

std::int64_t PictureSource::size() const {
    return m_state->size;
}

std::int64_t PictureSource::read(std::int64_t at, void* target, std::int64_t count) const {
    if (at < 0 || at >= m_state->size || count <= 0)
        return 0;
    count = std::min(count, m_state->size - at);
    if (!m_state->file) {
        std::memcpy(target, m_state->all->constData() + at, std::size_t(count));
        return count;
    }
    std::int64_t done = 0;
    while (done < count) {
        const ssize_t got = ::pread(m_state->file->handle(), static_cast<char*>(target) + done,
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
        m_state->start = bytes(0, StartSize);
    return *m_state->start;
}

QByteArray PictureSource::all() const {
    const std::lock_guard lock(m_state->mutex);
    if (!m_state->all) {
        if (m_state->size > LargestWhole)
            fail(
                ErrorNumber::UnreadableFile,
                m_state->file->fileName() +
                    QStringLiteral(": a file of %1 MB is too large for its format").arg(m_state->size >> 20));
        m_state->all = bytes(0, m_state->size);
    }
    return *m_state->all;
}

} // namespace tarsel
