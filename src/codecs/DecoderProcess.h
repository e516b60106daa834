// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/ChildProcess.h"
#include "codecs/CodecChecks.h"
#include "codecs/DecodedPicture.h"
#include "codecs/DecoderProtocol.h"

#include <QByteArray>
#include <atomic>
#include <chrono>
#include <initializer_list>
#include <stop_token>

namespace tarsel {

/// What a decoder is to do.
struct DecoderTask {
    DecoderFormat format = DecoderFormat::Metafile;
    QByteArray bytes;
    PixelSize size; ///< that the picture is to have
};

/// The child process in which decoders run that a crafted file can crash. It is started for the first file
/// and kept for the next ones. One that dies, breaks the protocol or takes too long is ended and costs the
/// file that it worked on; the next file gets a fresh child. For one thread at a time: see DecoderPool.
///
/// The program is the private file "tarsel-decoder", or what the environment's TARSEL_DECODER names.
class DecoderProcess {
public:
    static constexpr std::chrono::milliseconds usualTimeLimit = std::chrono::seconds(9);

    /// `timeLimit` is how long one file may take before the child is ended.
    explicit DecoderProcess(std::chrono::milliseconds timeLimit = usualTimeLimit) : m_timeLimit(timeLimit) {}

    /// Of the metadata there is nothing. Error 0x8000FFFF with the decoder's own words; as DecoderLost with
    /// what became of the process; error 18 when a stop is requested before the answer, which ends the child.
    DecodedPicture decode(const DecoderTask& task, const FileUnderTest& file,
                          const std::stop_token& stop = {});

    pid_t processId() const { return m_child.id(); } ///< 0 when none runs
    bool isWaiting() const { return m_waiting; }     ///< a request was sent and isn't answered yet

private:
    void start(const FileUnderTest& file);
    void requireIdleChild(const FileUnderTest& file);
    void send(const DecoderRequest& request, std::initializer_list<int> descriptors,
              const FileUnderTest& file);
    void logMissingLocks(std::uint32_t locks);
    void waitForReply(const FileUnderTest& file, const std::stop_token& stop);
    void end();
    [[noreturn]] void failForBrokenAnswer(const FileUnderTest& file);

    ChildProcess m_child;
    std::uint32_t m_serial = 0; ///< of the last request
    bool m_isNewChild = false;  ///< which has not answered yet
    Descriptor m_socket;
    const std::chrono::milliseconds m_timeLimit;
    std::atomic<bool> m_waiting = false;
};

} // namespace tarsel
