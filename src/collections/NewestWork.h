// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <utility>

namespace tarsel {

/// A thread that works on requests. One waits at most: the newest, which also stops the one in work. The work
/// must not throw, and delivers nothing once its stop is requested.
template <class Request>
class NewestWork {
public:
    using Work = std::function<void(Request, const std::stop_token&)>;

    explicit NewestWork(Work work) : m_work(std::move(work)), m_thread([this] { run(); }) {}
    /// Waits for the request in work.
    ~NewestWork() {
        {
            const std::lock_guard lock(m_mutex);
            m_isEnding = true;
            m_waiting.reset();
            m_current.request_stop();
        }
        m_changed.notify_one();
        m_thread.join();
    }
    NewestWork(const NewestWork&) = delete;
    NewestWork& operator=(const NewestWork&) = delete;

    void request(Request request) {
        {
            const std::lock_guard lock(m_mutex);
            m_current.request_stop();
            m_waiting = std::move(request);
        }
        m_changed.notify_one();
    }
    void cancel() {
        const std::lock_guard lock(m_mutex);
        m_current.request_stop();
        m_waiting.reset();
    }

private:
    /// Waits for work; nothing at the end.
    std::optional<Request> next() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_isEnding || m_waiting; });
        if (m_isEnding)
            return std::nullopt;
        m_current = std::stop_source();
        return std::exchange(m_waiting, std::nullopt);
    }

    void run() {
        while (std::optional<Request> request = next())
            m_work(*std::exchange(request, std::nullopt), m_current.get_token());
    }

    Work m_work;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Request> m_waiting;
    std::stop_source m_current;
    bool m_isEnding = false;
    std::thread m_thread;
};

} // namespace tarsel
