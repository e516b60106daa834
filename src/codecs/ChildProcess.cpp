// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/ChildProcess.h"

#include "base/PrivateFiles.h"
#include "codecs/DecoderProtocol.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <functional>
#include <mutex>
#include <spawn.h>
#include <stop_token>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace tarsel {

namespace {

using std::chrono::steady_clock;

/// A killed process can hang in the kernel, on a network drive for instance; it is left to the system then.
constexpr auto timeToDie = std::chrono::seconds(2);

bool comesTrueWithin(steady_clock::duration limit, const std::function<bool()>& condition) {
    const auto deadline = steady_clock::now() + limit;
    while (!condition()) {
        if (steady_clock::now() >= deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

/// Calls of one thread that lives as long as the process: a child that ends with its parent ends with the
/// thread that started it.
class LastingThread {
public:
    pid_t call(const std::function<pid_t()>& function) {
        const std::lock_guard oneCaller(m_callers);
        std::unique_lock lock(m_mutex);
        m_function = &function;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return !m_function; });
        return m_result;
    }

private:
    void run(const std::stop_token& stop) {
        std::unique_lock lock(m_mutex);
        while (m_changed.wait(lock, stop, [this] { return m_function; })) {
            m_result = (*m_function)();
            m_function = nullptr;
            m_changed.notify_all();
        }
    }

    std::mutex m_callers;
    std::mutex m_mutex;
    std::condition_variable_any m_changed;
    const std::function<pid_t()>* m_function = nullptr;
    pid_t m_result = 0;
    std::jthread m_thread{[this](const std::stop_token& stop) { run(stop); }};
};

pid_t onLastingThread(const std::function<pid_t()>& function) {
    if (::gettid() == ::getpid())
        return function();
    static LastingThread thread;
    return thread.call(function);
}

/// The child's id, or 0.
pid_t spawn(const QByteArray& program, int socket, ChildEnvironment environment) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, decoderSocket);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&actions, standard, "/dev/null", O_RDWR, 0);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none; // whatever the calling thread blocks
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    char* arguments[] = {const_cast<char*>(program.constData()), nullptr};
    char* nothing[] = {nullptr};
    pid_t child = 0;
    const int failed = ::posix_spawn(&child, program.constData(), &actions, &attributes, arguments,
                                     environment == ChildEnvironment::Empty ? nothing : ::environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return failed ? 0 : child;
}

} // namespace

QByteArray servingProgram(const char* variable, const char* name) {
    QByteArray configured = qgetenv(variable);
    if (!configured.isEmpty())
        return configured;
    return QByteArray::fromStdString(privateFile(name).string());
}

bool ChildProcess::start(const QByteArray& program, int socket, ChildEnvironment environment) {
    m_child = onLastingThread([&] { return spawn(program, socket, environment); });
    return m_child != 0;
}

bool ChildProcess::allowTime(rlim_t seconds, rlim_t total) const {
    clockid_t clock = {};
    timespec used = {};
    if (::clock_getcpuclockid(m_child, &clock) != 0 || ::clock_gettime(clock, &used) != 0)
        return true; // the socket says what became of it
    const rlimit limit{std::min(rlim_t(used.tv_sec) + seconds, total), total};
    ::prlimit(m_child, RLIMIT_CPU, &limit, nullptr);
    return rlim_t(used.tv_sec) + seconds <= total;
}

bool ChildProcess::endsByItself(std::chrono::milliseconds limit) const {
    return comesTrueWithin(limit, [this] {
        siginfo_t ended = {};
        const int waited = ::waitid(P_PID, id_t(m_child.load()), &ended, WEXITED | WNOHANG | WNOWAIT);
        return waited != 0 || ended.si_pid != 0;
    });
}

int ChildProcess::end() {
    const pid_t child = m_child.exchange(0);
    if (child == 0)
        return 0;
    ::kill(-child, SIGKILL);
    int status = 0;
    comesTrueWithin(timeToDie, [&] { return ::waitpid(child, &status, WNOHANG) != 0; });
    return status;
}

} // namespace tarsel
