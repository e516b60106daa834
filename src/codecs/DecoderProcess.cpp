// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderProcess.h"

#include <QFile>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <poll.h>
#include <spawn.h>
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

/// Reads, and doesn't map: the other end could still shorten what lies behind the descriptor.
bool readPixels(int descriptor, PixelView target) {
    const std::ptrdiff_t size = target.stride * target.height;
    std::ptrdiff_t done = 0;
    while (done < size) {
        const ssize_t count = ::pread(descriptor, target.data + done, std::size_t(size - done), done);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        done += std::max<ssize_t>(count, 0);
    }
    return true;
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
        failDecoding(file, QStringLiteral("its decoder gave too few pixels"));
    return picture;
}

/// Starts the program with the socket as its one open descriptor beside the silent standard ones, in a
/// process group of its own, so that an interrupt from the terminal doesn't end it in the middle of a file.
pid_t spawn(const QByteArray& program, int socket) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, DecoderSocket);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, standard, "/dev/null", O_RDWR, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP);
    char* arguments[] = {const_cast<char*>(program.constData()), nullptr};
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, program.constData(), &actions, &attributes, arguments, environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failed ? 0 : child;
}

} // namespace

DecoderProcess& DecoderProcess::shared() {
    static DecoderProcess process;
    return process;
}

DecoderProcess::~DecoderProcess() {
    end();
}

Picture DecoderProcess::decode(DecoderFormat format, const QByteArray& bytes, const FileUnderTest& file) {
    const std::lock_guard lock(m_mutex);
    const Descriptor content = contentDescriptor(bytes, file);
    send({format, std::uint64_t(bytes.size())}, content.number(), file);
    waitForReply(file);
    DecoderReply reply;
    Descriptor pixels;
    if (!receiveRecord(m_socket.number(), reply, pixels))
        failForDeath(file);
    return pictureOf(reply, pixels, file);
}

void DecoderProcess::start(const FileUnderTest& file) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        failDecoding(file, QStringLiteral("no socket for its decoder"));
    m_socket.reset(ends[0]);
    const Descriptor other(ends[1]);
    const QByteArray program = programPath();
    m_child = spawn(program, other.number());
    if (m_child == 0)
        failDecoding(file, QStringLiteral("its decoder %1 can't be started").arg(QFile::decodeName(program)));
}

/// A child that died while it had nothing to do is replaced; no file is to blame for that.
void DecoderProcess::send(const DecoderRequest& request, int content, const FileUnderTest& file) {
    const bool wasRunning = m_child != 0;
    if (!wasRunning)
        start(file);
    if (sendRecord(m_socket.number(), request, content))
        return;
    end();
    if (wasRunning)
        start(file);
    if (!wasRunning || !sendRecord(m_socket.number(), request, content))
        failDecoding(file, QStringLiteral("its decoder doesn't answer"));
}

void DecoderProcess::waitForReply(const FileUnderTest& file) {
    m_waiting = true;
    const auto deadline = std::chrono::steady_clock::now() + m_timeLimit;
    pollfd socket{m_socket.number(), POLLIN, 0};
    int ready = 0;
    do {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
            deadline - std::chrono::steady_clock::now());
        ready = ::poll(&socket, 1, int(std::max<std::int64_t>(left.count(), 0)));
    } while (ready < 0 && errno == EINTR);
    m_waiting = false;
    if (ready > 0)
        return;
    end();
    failDecoding(
        file,
        QStringLiteral("its decoder took longer than %1 seconds").arg(double(m_timeLimit.count()) / 1000));
}

void DecoderProcess::end() {
    m_socket.reset();
    const pid_t child = m_child.exchange(0);
    if (child == 0)
        return;
    ::kill(child, SIGKILL);
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

void DecoderProcess::failForDeath(const FileUnderTest& file) {
    m_socket.reset(); // lets a child that is alive after all come to its end
    const pid_t child = m_child.exchange(0);
    int status = 0;
    while (::waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU)
        failDecoding(file, QStringLiteral("its decoder took too long"));
    if (WIFSIGNALED(status))
        failDecoding(file, QStringLiteral("its decoder crashed (signal %1)").arg(WTERMSIG(status)));
    failDecoding(file, QStringLiteral("its decoder ended (status %1)").arg(WEXITSTATUS(status)));
}

} // namespace tarsel
