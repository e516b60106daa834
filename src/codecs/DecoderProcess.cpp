// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderProcess.h"

#include "base/Stop.h"
#include "codecs/DecoderLost.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tarsel {

namespace {

constexpr char ProgramName[] = "tarsel-decoder";

QByteArray programPath() {
    QByteArray configured = qgetenv("TARSEL_DECODER");
    if (!configured.isEmpty())
        return configured;
    std::error_code none;
    const auto self = std::filesystem::read_symlink("/proc/self/exe", none);
    return QByteArray::fromStdString((self.parent_path() / ProgramName).string());
}

/// The bytes in a descriptor that another process can map.
Descriptor contentDescriptor(const QByteArray& bytes, const FileUnderTest& file) {
    Descriptor content(::memfd_create("picture", MFD_CLOEXEC));
    qsizetype written = 0;
    while (content.isOpen() && written < bytes.size()) {
        const ssize_t count =
            ::write(content.number(), bytes.constData() + written, std::size_t(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            break;
        written += std::max<ssize_t>(count, 0);
    }
    if (!content.isOpen() || written < bytes.size())
        failDecoding(file, QStringLiteral("no memory to hand it to its decoder"));
    return content;
}

/// A file of at least that size in memory or on disk: reading it can't block.
bool holdsAtLeast(int descriptor, std::ptrdiff_t size) {
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size >= size;
}

/// Reads, and doesn't map: the child could still shorten the file.
bool readPixels(int descriptor, PixelView target) {
    const std::ptrdiff_t size = target.stride * target.height;
    std::ptrdiff_t done = holdsAtLeast(descriptor, size) ? 0 : -1;
    while (done >= 0 && done < size) {
        const ssize_t count = ::pread(descriptor, target.data + done, std::size_t(size - done), done);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        done += std::max<ssize_t>(count, 0);
    }
    return done == size;
}

Picture pictureOf(const DecoderReply& reply, const Descriptor& pixels, const FileUnderTest& file) {
    if (reply.width == 0) {
        const auto length = qsizetype(::strnlen(reply.message, sizeof reply.message));
        failDecoding(file, QString::fromUtf8(reply.message, length));
    }
    const bool possible = reply.width > 0 && reply.height > 0 &&
                          (reply.channels == 3 || reply.channels == 4) &&
                          std::int64_t(reply.width) * reply.height <= Picture::MaximumPixels;
    if (!possible)
        failDecoding(file, QStringLiteral("a size of %1 x %2 pixels").arg(reply.width).arg(reply.height));
    Picture picture(reply.width, reply.height, reply.channels);
    if (!readPixels(pixels.number(), picture.edit()))
        failDecoding(file, QStringLiteral("its decoder returned too few pixels"));
    return picture;
}

[[noreturn]] void failForLostDecoder(const FileUnderTest& file, const QString& fact) {
    try {
        failDecoding(file, fact);
    } catch (const TrappedError& error) {
        throw DecoderLost{error};
    }
}

/// Becomes readable when a stop is requested, so that poll sees it.
class StopDescriptor {
public:
    explicit StopDescriptor(const std::stop_token& stop) :
        m_event(stop.stop_possible() ? ::eventfd(0, EFD_CLOEXEC) : -1),
        m_onStop(stop, Wake{m_event.number()}) {}
    int number() const { return m_event.number(); } ///< -1, which poll skips, where no stop can come

private:
    struct Wake {
        int event;
        void operator()() const { ::eventfd_write(event, 1); }
    };
    Descriptor m_event;
    std::stop_callback<Wake> m_onStop;
};

/// Waits until one of the two can be read, or the deadline has passed. False in the latter case.
bool waitForEither(int one, int other, std::chrono::steady_clock::time_point deadline) {
    pollfd both[] = {{one, POLLIN, 0}, {other, POLLIN, 0}};
    int ready = 0;
    do {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        ready = ::poll(both, 2, int(std::max<std::int64_t>(left.count(), 0)));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

bool canBeRead(int socket) {
    return waitForEither(socket, -1, std::chrono::steady_clock::now());
}

} // namespace

Picture DecoderProcess::decode(const DecoderTask& task, const FileUnderTest& file,
                               const std::stop_token& stop) {
    raiseIfStopped(stop);
    const Descriptor content = contentDescriptor(task.bytes, file);
    send({task.format, ++m_serial, std::uint64_t(task.bytes.size()), task.size.width, task.size.height},
         content.number(), file);
    waitForReply(file, stop);
    DecoderReply reply;
    Descriptor pixels;
    if (!receiveRecord(m_socket.number(), reply, pixels) || reply.serial != m_serial)
        failForBrokenAnswer(file);
    return pictureOf(reply, pixels, file);
}

void DecoderProcess::start(const FileUnderTest& file) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        failDecoding(file, QStringLiteral("no socket for its decoder"));
    m_socket.reset(ends[0]);
    const Descriptor other(ends[1]);
    ::fcntl(m_socket.number(), F_SETFL, O_NONBLOCK); // only poll waits
    const QByteArray program = programPath();
    if (!m_child.start(program, other.number()))
        failDecoding(file, QStringLiteral("its decoder %1 can't be started").arg(QFile::decodeName(program)));
}

/// A child that died while it had nothing to do, or that speaks without a request, is replaced: no file is
/// to blame for that.
void DecoderProcess::requireIdleChild(const FileUnderTest& file) {
    if (m_child.isRunning() && canBeRead(m_socket.number()))
        end();
    if (!m_child.isRunning())
        start(file);
}

void DecoderProcess::send(const DecoderRequest& request, int content, const FileUnderTest& file) {
    requireIdleChild(file);
    if (sendRecord(m_socket.number(), request, content))
        return;
    end();
    start(file);
    if (sendRecord(m_socket.number(), request, content))
        return;
    end();
    failDecoding(file, QStringLiteral("its decoder doesn't answer"));
}

void DecoderProcess::waitForReply(const FileUnderTest& file, const std::stop_token& stop) {
    m_waiting = true;
    const StopDescriptor stopped(stop);
    const bool inTime =
        waitForEither(m_socket.number(), stopped.number(), std::chrono::steady_clock::now() + m_timeLimit);
    m_waiting = false;
    if (inTime && !stop.stop_requested())
        return;
    end();
    raiseIfStopped(stop);
    failForLostDecoder(
        file,
        QStringLiteral("its decoder took longer than %1 seconds").arg(double(m_timeLimit.count()) / 1000));
}

void DecoderProcess::end() {
    m_socket.reset();
    m_child.end();
}

void DecoderProcess::failForBrokenAnswer(const FileUnderTest& file) {
    const bool endedByItself = m_child.endsByItself();
    m_socket.reset();
    const int status = m_child.end();
    if (!endedByItself)
        failForLostDecoder(file, QStringLiteral("its decoder broke off its answer"));
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU)
        failForLostDecoder(file, QStringLiteral("its decoder took too long"));
    if (WIFSIGNALED(status))
        failForLostDecoder(file, QStringLiteral("its decoder crashed (signal %1)").arg(WTERMSIG(status)));
    failForLostDecoder(file, QStringLiteral("its decoder ended (status %1)").arg(WEXITSTATUS(status)));
}

} // namespace tarsel
