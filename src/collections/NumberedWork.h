// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <thread>
#include <vector>

namespace tarsel {

/// Threads that read the files of numbered rows: the preferred numbers first, then in ascending order.
class NumberedWork {
public:
    /// `work` is called on the threads and obeys the stop in force. It must not throw. Error 7 when not a
    /// single thread can be started.
    explicit NumberedWork(std::function<void(int number)> work);
    /// Stops, and waits for what is in work.
    ~NumberedWork();
    NumberedWork(const NumberedWork&) = delete;
    NumberedWork& operator=(const NumberedWork&) = delete;

    void add(const std::vector<int>& numbers);
    void drop(int number);                 ///< unless it was begun
    void prefer(std::vector<int> numbers); ///< before all others, in that order
    void stop();
    bool hasStopped() const { return m_stop.stop_requested(); }
    bool hasEnded() const; ///< after a stop: nothing is in work any more
    std::stop_token stopToken() const { return m_stop.get_token(); }

private:
    void run();
    std::optional<int> takeNumber();
    bool isPending(int number) const;

    const std::function<void(int)> m_work;
    std::stop_source m_stop;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<bool> m_isPending; ///< by number
    std::vector<int> m_preferred;  ///< the next one last
    int m_firstPending = 0;        ///< no number before it is pending
    int m_running = 0;
    std::vector<std::thread> m_threads;
};

} // namespace tarsel
