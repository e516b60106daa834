// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderProcess.h"

#include "base/Stop.h"
#include "bytes/StopDescriptor.h"
#include "codecs/DecoderLost.h"

#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QString>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tarsel {

namespace {

Q_LOGGING_CATEGORY(logging, "tarsel.codecs")

// Of processor time.
constexpr rlim_t secondsForOneFile = 10, secondsForOneChild = 600;

/// Memory that another process can map. No process can change its size.
Descriptor sharedMemory(const char* name, std::int64_t size) {
    Descriptor memory(::memfd_create(name, MFD_CLOEXEC | MFD_ALLOW_SEALING));
    const bool isReady = memory.isOpen() && ::ftruncate(memory.number(), size) == 0 &&
                         ::fcntl(memory.number(), F_ADD_SEALS, F_SEAL_SHRINK | F_SEAL_GROW) == 0;
    return isReady ? std::move(memory) : Descriptor();
}

bool writeAll(int descriptor, const QByteArray& bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::pwrite(descriptor, bytes.constData() + written, std::size_t(bytes.size() - written), written);
        if (count == 0 || (count < 0 && errno != EINTR))
            return false;
        written += std::max<ssize_t>(count, 0);
    }
    return true;
}

[[noreturn]] void failForLostDecoder(const FileUnderTest& file, const QString& fact) {
    try {
        failDecoding(file, fact);
    } catch (const TrappedError& error) {
        throw DecoderLost{error};
    }
}

/// The file's bytes, which the decoder can only read.
Descriptor contentMemory(const QByteArray& bytes, const FileUnderTest& file) {
    Descriptor content = sharedMemory("picture", bytes.size());
    if (!content.isOpen() || !writeAll(content.number(), bytes) ||
        ::fcntl(content.number(), F_ADD_SEALS, F_SEAL_WRITE) != 0)
        failForLostDecoder(
            file, QCoreApplication::translate("DecoderProcess", "no memory to pass it to its decoder"));
    return content;
}

Descriptor pixelMemory(PixelSize size, const FileUnderTest& file) {
    Descriptor pixels = sharedMemory("pixels", std::int64_t(4) * size.width * size.height);
    if (!pixels.isOpen())
        failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "no memory for its pixels"));
    return pixels;
}

/// Reads, and doesn't map: the child could still write.
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

/// The decoder's own words, of which nothing but printable characters is passed on.
QString messageOf(const DecoderReply& reply) {
    const auto length = qsizetype(::strnlen(reply.message, sizeof reply.message));
    QString text = QString::fromUtf8(reply.message, length);
    std::ranges::replace_if(
        text, [](QChar c) { return !c.isPrint(); }, QLatin1Char('?'));
    return text;
}

Picture pictureOf(const DecoderReply& reply, PixelSize size, const Descriptor& pixels,
                  const FileUnderTest& file) {
    Picture picture(size.width, size.height, reply.channels);
    if (!readPixels(pixels.number(), picture.edit()))
        failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "no memory for its pixels"));
    return picture;
}

bool canBeRead(int socket) {
    return waitForEither(socket, -1, std::chrono::steady_clock::now());
}

} // namespace

DecodedPicture DecoderProcess::decode(const DecoderTask& task, const FileUnderTest& file,
                                      const std::stop_token& stop) {
    raiseIfStopped(stop);
    const Descriptor content = contentMemory(task.bytes, file);
    const Descriptor pixels = pixelMemory(task.size, file);
    send({task.format, ++m_serial, std::uint64_t(task.bytes.size()), task.size.width, task.size.height},
         {content.number(), pixels.number()}, file);
    waitForReply(file, stop);
    DecoderReply reply;
    std::vector<Descriptor> none;
    if (!receiveRecord(m_socket.number(), reply, none, 0) || reply.serial != m_serial ||
        (reply.channels != 0 && reply.channels != 3 && reply.channels != 4))
        failForBrokenAnswer(file);
    logMissingLocks(reply.missingLocks);
    if (reply.channels == 0)
        failDecoding(file, messageOf(reply));
    return {pictureOf(reply, task.size, pixels, file), {}, messageOf(reply)};
}

/// Once for each child.
void DecoderProcess::logMissingLocks(std::uint32_t locks) {
    if (!m_isNewChild)
        return;
    m_isNewChild = false;
    const std::pair<DecoderLock, const char*> names[] = {
        {SystemCallsLock, "list of system calls"}, {PrivilegesLock, "privileges"},
        {ParentLock, "end with the parent"},       {LimitsLock, "resource limits"},
        {DescriptorsLock, "no other descriptors"},
    };
    for (const auto& [lock, name] : names)
        if (locks & lock)
            qCWarning(logging, "tarsel-decoder runs without a lock that this kernel lacks: %s", name);
}

void DecoderProcess::start(const FileUnderTest& file) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "no socket for its decoder"));
    m_socket.reset(ends[0]);
    const Descriptor other(ends[1]);
    ::fcntl(m_socket.number(), F_SETFL, O_NONBLOCK); // only poll waits
    const QByteArray program = servingProgram("TARSEL_DECODER", "tarsel-decoder");
    if (!m_child.start(program, other.number()))
        failForLostDecoder(file,
                           QCoreApplication::translate("DecoderProcess", "its decoder %1 can't be started")
                               .arg(QFile::decodeName(program)));
    m_child.allowTime(secondsForOneFile, secondsForOneChild);
    m_isNewChild = true;
}

/// A child that died while it had nothing to do, that speaks without a request, or that has used up its time,
/// is replaced: no file is to blame for that.
void DecoderProcess::requireIdleChild(const FileUnderTest& file) {
    if (m_child.isRunning() &&
        (canBeRead(m_socket.number()) || !m_child.allowTime(secondsForOneFile, secondsForOneChild)))
        end();
    if (!m_child.isRunning())
        start(file);
}

void DecoderProcess::send(const DecoderRequest& request, std::initializer_list<int> descriptors,
                          const FileUnderTest& file) {
    requireIdleChild(file);
    if (sendRecord(m_socket.number(), request, descriptors))
        return;
    end();
    start(file);
    if (sendRecord(m_socket.number(), request, descriptors))
        return;
    end();
    failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "its decoder does not answer"));
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
        file, QCoreApplication::translate("DecoderProcess", "its decoder took longer than %1 seconds")
                  .arg(double(m_timeLimit.count()) / 1000));
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
        failForLostDecoder(file,
                           QCoreApplication::translate("DecoderProcess", "its decoder broke off its answer"));
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGXCPU)
        failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "its decoder took too long"));
    if (WIFSIGNALED(status))
        failForLostDecoder(file,
                           QCoreApplication::translate("DecoderProcess", "its decoder crashed (signal %1)")
                               .arg(WTERMSIG(status)));
    failForLostDecoder(file, QCoreApplication::translate("DecoderProcess", "its decoder ended (status %1)")
                                 .arg(WEXITSTATUS(status)));
}

} // namespace tarsel
