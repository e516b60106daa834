// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Interrupt.h"

#include "base/Progress.h"

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <thread>
#include <time.h>
#include <tuple>
#include <unistd.h>

namespace tarsel::cli {

namespace {

std::atomic<int> wakeEvent = -1;
std::atomic<std::int64_t> firstSignal = 0; ///< when it came, in milliseconds; 0 before
static_assert(std::atomic<bool>::is_always_lock_free && std::atomic<int>::is_always_lock_free &&
                  std::atomic<std::int64_t>::is_always_lock_free,
              "the signal handler uses them");

std::int64_t milliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return std::int64_t(now.tv_sec) * 1000 + now.tv_nsec / 1'000'000;
}

void wake() {
    const std::uint64_t one = 1;
    [[maybe_unused]] const ssize_t written = ::write(wakeEvent, &one, sizeof one);
}

void setAction(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

/// Some senders, such as the program timeout, signal a process and then its group: that counts once.
void onSignal(int number) {
    constexpr std::int64_t together = 200;
    const int saved = errno;
    const std::int64_t now = milliseconds();
    std::int64_t first = 0;
    if (firstSignal.compare_exchange_strong(first, now)) {
        CancelRequested = true;
        wake();
    } else if (now - first > together) {
        setAction(SIG_DFL);
        std::ignore = raise(number); // ends the process when this handler returns
    }
    errno = saved;
}

} // namespace

/// Requests the stop on a thread of its own: a signal handler may not.
class InterruptScope::Watcher {
public:
    Watcher() {
        wakeEvent = ::eventfd(0, EFD_CLOEXEC);
        m_thread = std::thread([this] { watch(); });
    }
    ~Watcher() {
        wake();
        m_thread.join();
        ::close(wakeEvent.exchange(-1));
    }
    Watcher(const Watcher&) = delete;
    Watcher& operator=(const Watcher&) = delete;
    std::stop_token stop() const { return m_source.get_token(); }

private:
    void watch() {
        std::uint64_t count = 0;
        while (::read(wakeEvent, &count, sizeof count) < 0 && errno == EINTR) {
        }
        if (wasInterrupted())
            m_source.request_stop();
    }

    std::stop_source m_source;
    std::thread m_thread;
};

InterruptScope::InterruptScope() {
    firstSignal = 0;
    CancelRequested = false;
    m_watcher = std::make_unique<Watcher>();
    setAction(onSignal);
}

InterruptScope::~InterruptScope() {
    setAction(SIG_DFL);
}

std::stop_token InterruptScope::stop() const {
    return m_watcher->stop();
}

bool wasInterrupted() {
    return firstSignal != 0;
}

ExitStatus exitStatus(bool isAllDone) {
    return wasInterrupted() ? Interrupted : isAllDone ? AllDone : SomeNotDone;
}

} // namespace tarsel::cli
