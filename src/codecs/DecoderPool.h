// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecoderProcess.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace tarsel {

/// Decoder processes for any number of threads: as many files as there are processes are decoded at once.
class DecoderPool {
public:
    /// The one of this process, with a child for each core, started when it is first needed.
    static DecoderPool& shared();

    explicit DecoderPool(int size, std::chrono::milliseconds timeLimit = DecoderProcess::usualTimeLimit);

    /// As DecoderProcess::decode, for any thread. While all children are busy it waits for one; a stop ends
    /// that wait, too.
    DecodedPicture decode(const DecoderTask& task, const FileUnderTest& file,
                          const std::stop_token& stop = {});

    int busyCount() const; ///< children that are at work on a file

private:
    class Lease;
    DecoderProcess* take(const std::stop_token& stop);
    void giveBack(DecoderProcess* process);

    std::vector<std::unique_ptr<DecoderProcess>> m_processes;
    mutable std::mutex m_mutex;
    std::condition_variable_any m_givenBack;
    std::vector<DecoderProcess*> m_free; ///< the one used last is at the end and is taken first
};

} // namespace tarsel
