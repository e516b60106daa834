// SPDX-License-Identifier: GPL-3.0-or-later
#include "collections/NumberedWork.h"

#include "base/Spreading.h"
#include "base/Stop.h"
#include "base/TrappedError.h"

#include <algorithm>
#include <system_error>

namespace tarsel {

NumberedWork::NumberedWork(std::function<void(int number)> work) : m_work(std::move(work)) {
    try {
        while (int(m_threads.size()) < Spreading::overProcessors().threads) {
            m_threads.emplace_back([this] { run(); });
            const std::lock_guard lock(m_mutex);
            ++m_running;
        }
    } catch (const std::system_error& error) {
        if (m_threads.empty())
            fail(ErrorNumber::OutOfMemory, QString::fromUtf8(error.what()));
    }
}

NumberedWork::~NumberedWork() {
    stop();
    for (std::thread& thread : m_threads)
        thread.join();
}

void NumberedWork::add(const std::vector<int>& numbers) {
    {
        const std::lock_guard lock(m_mutex);
        for (const int number : numbers) {
            if (size_t(number) >= m_isPending.size())
                m_isPending.resize(size_t(number) + 1, false);
            m_isPending[size_t(number)] = true;
            m_firstPending = std::min(m_firstPending, number);
        }
    }
    m_changed.notify_all();
}

void NumberedWork::drop(int number) {
    const std::lock_guard lock(m_mutex);
    if (isPending(number))
        m_isPending[size_t(number)] = false;
}

void NumberedWork::prefer(std::vector<int> numbers) {
    std::reverse(numbers.begin(), numbers.end());
    const std::lock_guard lock(m_mutex);
    m_preferred = std::move(numbers);
}

void NumberedWork::stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop.request_stop();
    }
    m_changed.notify_all();
}

bool NumberedWork::hasEnded() const {
    const std::lock_guard lock(m_mutex);
    return m_running == 0;
}

void NumberedWork::run() {
    const StopScope scope(m_stop.get_token()); // a stop also ends the wait for a slow decoder
    while (const std::optional<int> number = takeNumber())
        m_work(*number);
    const std::lock_guard lock(m_mutex);
    --m_running;
}

/// Waits for a number to work on. Nothing after a stop.
std::optional<int> NumberedWork::takeNumber() {
    std::unique_lock lock(m_mutex);
    for (;;) {
        if (m_stop.stop_requested())
            return std::nullopt;
        while (!m_preferred.empty() && !isPending(m_preferred.back()))
            m_preferred.pop_back();
        while (m_firstPending < int(m_isPending.size()) && !isPending(m_firstPending))
            ++m_firstPending;
        const int number = m_preferred.empty() ? m_firstPending : m_preferred.back();
        if (isPending(number)) {
            m_isPending[size_t(number)] = false;
            return number;
        }
        m_changed.wait(lock);
    }
}

bool NumberedWork::isPending(int number) const {
    return number >= 0 && size_t(number) < m_isPending.size() && m_isPending[size_t(number)];
}

} // namespace tarsel
