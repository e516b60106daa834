// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace tarsel {

/// A value that another thread makes.
template <class Value>
class Awaited {
public:
    void set(Value value) {
        {
            const std::lock_guard lock(m_mutex);
            m_value = std::move(value);
        }
        m_changed.notify_all();
    }
    /// Whether the value is there, now or within the time.
    bool isThereWithin(std::chrono::milliseconds time) {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, time, [this] { return m_value.has_value(); });
    }
    /// Waits for the value and moves it out, once.
    Value take() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_value.has_value(); });
        return *std::exchange(m_value, std::nullopt);
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Value> m_value;
};

/// Threads that do pieces of work, which are begun in the order in which they were added. A piece may
/// therefore wait for an earlier one. Work must not throw.
class WorkQueue {
public:
    explicit WorkQueue(int threads);
    /// Drops what was not begun and waits for the rest.
    ~WorkQueue();
    WorkQueue(const WorkQueue&) = delete;
    WorkQueue& operator=(const WorkQueue&) = delete;

    void add(std::function<void()> work);

private:
    void run(const std::stop_token& end);
    std::function<void()> next(const std::stop_token& end); ///< empty at the end

    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    std::deque<std::function<void()>> m_waiting;
    std::vector<std::jthread> m_threads; // last, so that they end first
};

} // namespace tarsel
