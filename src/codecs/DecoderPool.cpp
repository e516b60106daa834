// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/DecoderPool.h"

#include "base/Stop.h"

#include <algorithm>
#include <thread>

namespace tarsel {

/// A process for as long as one file takes.
class DecoderPool::Lease {
public:
    Lease(DecoderPool& pool, const std::stop_token& stop) : m_pool(pool), m_process(pool.take(stop)) {}
    ~Lease() { m_pool.giveBack(m_process); }
    Lease(const Lease&) = delete;
    Lease& operator=(const Lease&) = delete;
    DecoderProcess* operator->() const { return m_process; }

private:
    DecoderPool& m_pool;
    DecoderProcess* m_process;
};

DecoderPool& DecoderPool::shared() {
    static DecoderPool pool(int(std::max(1U, std::thread::hardware_concurrency())));
    return pool;
}

DecoderPool::DecoderPool(int size, std::chrono::milliseconds timeLimit) {
    for (int i = 0; i < size; ++i) {
        m_processes.push_back(std::make_unique<DecoderProcess>(timeLimit));
        m_free.push_back(m_processes.back().get());
    }
}

DecodedPicture DecoderPool::decode(const DecoderTask& task, const FileUnderTest& file,
                                   const std::stop_token& stop) {
    const Lease process(*this, stop);
    return process->decode(task, file, stop);
}

int DecoderPool::busyCount() const {
    const std::lock_guard lock(m_mutex);
    return int(m_processes.size() - m_free.size());
}

DecoderProcess* DecoderPool::take(const std::stop_token& stop) {
    std::unique_lock lock(m_mutex);
    m_givenBack.wait(lock, stop, [this] { return !m_free.empty(); });
    raiseIfStopped(stop);
    DecoderProcess* process = m_free.back();
    m_free.pop_back();
    return process;
}

void DecoderPool::giveBack(DecoderProcess* process) {
    {
        const std::lock_guard lock(m_mutex);
        m_free.push_back(process);
    }
    m_givenBack.notify_one();
}

} // namespace tarsel
