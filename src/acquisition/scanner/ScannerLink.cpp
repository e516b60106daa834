// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScannerLink.h"

#include "acquisition/scanner/ScannerErrors.h"
#include "bytes/Messages.h"
#include "bytes/StopDescriptor.h"

#include <QFile>
#include <QLoggingCategory>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace tarsel {

namespace {

Q_LOGGING_CATEGORY(logging, "tarsel.scanner", QtWarningMsg)

using std::chrono::steady_clock;

constexpr std::uint32_t mostReplyBytes = 16U << 20;
constexpr std::chrono::milliseconds timeToClose{2000};

bool canBeRead(int socket) {
    return waitForEither(socket, -1, steady_clock::now());
}

} // namespace

bool ScannerLink::isRunning() {
    if (m_child.isRunning() && canBeRead(m_socket.number()))
        kill();
    return m_child.isRunning();
}

void ScannerLink::kill() {
    m_socket.reset();
    m_child.end();
}

void ScannerLink::end() {
    if (!m_child.isRunning())
        return;
    m_socket.reset();
    m_child.endsByItself(timeToClose);
    m_child.end();
}

void ScannerLink::startWhereNoneRuns() {
    if (isRunning())
        return;
    int ends[2];
    const QByteArray program = servingProgram("TARSEL_SCANNER", "tarsel-scanner");
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0)
        failScanning(ScannerFault::NotStarted, QFile::decodeName(program));
    m_socket.reset(ends[0]);
    const Descriptor other(ends[1]);
    ::fcntl(m_socket.number(), F_SETFL, O_NONBLOCK); // only poll waits
    if (!m_child.start(program, other.number(), ChildEnvironment::Inherited))
        failScanning(ScannerFault::NotStarted, QFile::decodeName(program));
}

void ScannerLink::send(ScannerRequest request, const QByteArray& text, const QString& subject) {
    m_subject = subject;
    m_cancelled.reset();
    m_isInterrupted = false;
    if (!m_child.isRunning() || canBeRead(m_socket.number()))
        failForBrokenAnswer();
    m_isAnswered = false;
    request.serial = ++m_serial;
    request.bytes = std::uint32_t(text.size());
    const auto bytes = std::as_bytes(std::span(text.constData(), std::size_t(text.size())));
    if (!sendRecord(m_socket.number(), request) || (!bytes.empty() && !sendMessage(m_socket.number(), bytes)))
        failForBrokenAnswer();
}

ScannerReply ScannerLink::receive(const ScannerPatience& patience) {
    ScannerReply reply;
    receiveBytes(std::as_writable_bytes(std::span(&reply, 1)), patience);
    if (reply.serial != m_serial || reply.bytes > mostReplyBytes)
        failForBrokenAnswer();
    m_bytes.resize(reply.bytes);
    for (std::span<std::byte> rest = m_bytes; !rest.empty();
         rest = rest.subspan(std::min(rest.size(), scannerChunk)))
        receiveBytes(rest.first(std::min(rest.size(), scannerChunk)), patience);
    m_isAnswered = reply.kind == ScannerReplyKind::Answer;
    return reply;
}

void ScannerLink::abandon() {
    std::stop_source source;
    source.request_stop();
    while (m_child.isRunning() && !m_isAnswered)
        receive({timeToRest, source.get_token(), true});
}

void ScannerLink::receiveBytes(std::span<std::byte> bytes, const ScannerPatience& patience) {
    waitForMessage(patience);
    std::vector<Descriptor> none;
    if (!receiveMessage(m_socket.number(), bytes, none, 0))
        failForBrokenAnswer();
}

void ScannerLink::waitForMessage(const ScannerPatience& patience) {
    const StopDescriptor stopped(patience.stop);
    const auto silentUntil = steady_clock::now() + patience.silence;
    for (;;) {
        if (patience.stop.stop_requested())
            cancel(patience);
        const auto deadline =
            !m_cancelled
                ? silentUntil
                : std::min(silentUntil, *m_cancelled + (m_isInterrupted ? timeToRest : timeToCancel));
        // Once the stop is known its descriptor, which stays readable, would end every wait.
        waitForEither(m_socket.number(), m_cancelled ? -1 : stopped.number(), deadline);
        if (canBeRead(m_socket.number()))
            return;
        if (steady_clock::now() >= silentUntil) {
            kill();
            failScanning(ScannerFault::Hanging, m_subject);
        }
    }
}

/// By and by: asks, interrupts the driver, kills the process.
void ScannerLink::cancel(const ScannerPatience& patience) {
    const auto now = steady_clock::now();
    if (!patience.isPolite || (m_cancelled && now >= *m_cancelled + timeToRest)) {
        qCDebug(logging, "the scanner's process is killed");
        kill();
        failScanning(ScannerFault::Cancelled, m_subject);
    }
    const bool isFirst = !m_cancelled;
    const bool isSecond = m_cancelled && !m_isInterrupted && now >= *m_cancelled + timeToCancel;
    if (isFirst)
        m_cancelled = now;
    if (isSecond)
        m_isInterrupted = true;
    if (isFirst || isSecond)
        ::kill(m_child.id(), SIGINT);
}

void ScannerLink::failForBrokenAnswer() {
    const bool endedByItself = m_child.endsByItself();
    m_socket.reset();
    const int status = m_child.end();
    qCDebug(logging, "%s: the scanner's process was lost (status %d)", qUtf8Printable(m_subject), status);
    failScanning(endedByItself ? ScannerFault::Crashed : ScannerFault::BrokenProtocol, m_subject);
}

} // namespace tarsel
