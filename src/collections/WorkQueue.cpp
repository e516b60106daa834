// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/WorkQueue.h"

namespace tarsel {

WorkQueue::WorkQueue(int threads) {
    for (int i = 0; i < threads; ++i)
        m_threads.emplace_back([this](const std::stop_token& end) { run(end); });
}

WorkQueue::~WorkQueue() {
    const std::lock_guard lock(m_mutex);
    m_waiting.clear();
}

void WorkQueue::add(std::function<void()> work) {
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(std::move(work));
    }
    m_changed.notify_one();
}

std::function<void()> WorkQueue::next(const std::stop_token& end) {
    std::unique_lock lock(m_mutex);
    if (!m_changed.wait(lock, end, [this] { return !m_waiting.empty(); }))
        return {};
    std::function<void()> work = std::move(m_waiting.front());
    m_waiting.pop_front();
    return work;
}

void WorkQueue::run(const std::stop_token& end) {
    while (const std::function<void()> work = next(end))
        work();
}

} // namespace tarsel
