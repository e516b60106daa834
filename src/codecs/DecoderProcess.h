// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/CodecChecks.h"
#include "codecs/DecoderProtocol.h"
#include "pixels/Picture.h"

#include <QByteArray>
#include <atomic>
#include <chrono>
#include <mutex>
#include <sys/types.h>

namespace tarsel {

/// The child process in which decoders run that a crafted file can crash. It is started for the first file,
/// kept for the next ones, and ended when it takes too long. Its death in the middle of a file is a failed
/// load of that file; the next one gets a fresh child.
///
/// The program is "tarsel-decoder" beside the running one, or what the environment's TARSEL_DECODER names.
class DecoderProcess {
public:
    /// The one of this process.
    static DecoderProcess& shared();

    DecoderProcess() = default;
    ~DecoderProcess();
    DecoderProcess(const DecoderProcess&) = delete;
    DecoderProcess& operator=(const DecoderProcess&) = delete;

    /// Error 0x8000FFFF with the decoder's own words, or with what became of the process. One file at a time:
    /// a second thread waits.
    Picture decode(DecoderFormat format, const QByteArray& bytes, const FileUnderTest& file);

    /// How long one file may take before the child is ended.
    void setTimeLimit(std::chrono::milliseconds limit) { m_timeLimit = limit; }
    pid_t processId() const { return m_child; }  ///< 0 when none runs
    bool isWaiting() const { return m_waiting; } ///< a file was handed over and isn't answered yet

private:
    void start(const FileUnderTest& file);
    void send(const DecoderRequest& request, int content, const FileUnderTest& file);
    void waitForReply(const FileUnderTest& file);
    void end();
    [[noreturn]] void failForDeath(const FileUnderTest& file);

    std::mutex m_mutex;
    std::atomic<pid_t> m_child = 0;
    Descriptor m_socket;
    std::chrono::milliseconds m_timeLimit = std::chrono::seconds(20);
    std::atomic<bool> m_waiting = false;
};

} // namespace tarsel
