// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition/scanner/ScannerProtocol.h"
#include "bytes/Descriptor.h"
#include "codecs/ChildProcess.h"

#include <QByteArray>
#include <QString>
#include <chrono>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace tarsel {

/// How long a request may take, and how it is stopped.
struct ScannerPatience {
    std::chrono::milliseconds silence; ///< the longest one, after which the process counts as hanging
    std::stop_token stop = {};
    /// The device is asked to come to rest, and has `timeToRest` for it; false: the process is killed at
    /// once.
    bool isPolite = false;
};

/// The process in which the drivers of scanners run, and the socket to it. One that dies, hangs or makes no
/// sense is ended by the error that says so. For one thread at a time.
class ScannerLink {
public:
    static constexpr std::chrono::milliseconds timeToCancel{1000}; ///< until the driver is interrupted
    static constexpr std::chrono::milliseconds timeToRest{3000};

    ScannerLink() = default;
    ~ScannerLink() { end(); }
    ScannerLink(const ScannerLink&) = delete;
    ScannerLink& operator=(const ScannerLink&) = delete;

    /// False also for a process that died, or spoke without a request.
    bool isRunning();
    pid_t processId() const { return m_child.id(); } ///< 0 when none runs
    /// Closes the device as the driver wants it, if the process is idle and quick about it.
    void end();

    void startWhereNoneRuns();
    /// To a process that runs. `subject` is named by errors of this request.
    void send(ScannerRequest request, const QByteArray& text, const QString& subject);
    /// The next reply to the last request; its bytes stay until the next call. Error 18 after a stop that the
    /// process did not follow in time, or that was not polite.
    ScannerReply receive(const ScannerPatience& patience);
    /// Where the last request is still being answered: cancels it, and drops what comes.
    void abandon();
    const std::vector<std::byte>& bytes() const { return m_bytes; }

private:
    using Time = std::chrono::steady_clock::time_point;

    void waitForMessage(const ScannerPatience& patience);
    void cancel(const ScannerPatience& patience);
    void receiveBytes(std::span<std::byte> bytes, const ScannerPatience& patience);
    void kill();
    [[noreturn]] void failForBrokenAnswer();

    ChildProcess m_child;
    Descriptor m_socket;
    std::uint32_t m_serial = 0;
    bool m_isAnswered = true; ///< the last request is, to its end
    QString m_subject;
    std::optional<Time> m_cancelled; ///< when the device was asked to come to rest
    bool m_isInterrupted = false;    ///< the driver was
    std::vector<std::byte> m_bytes;
};

} // namespace tarsel
