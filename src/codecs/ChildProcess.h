// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <atomic>
#include <chrono>
#include <sys/resource.h>
#include <sys/types.h>

namespace tarsel {

/// Path of a program that serves this one: what that variable of the environment names, else the private file
/// of this name.
QByteArray servingProgram(const char* variable, const char* name);

/// What a child knows of the environment: drivers of devices have their settings there.
enum class ChildEnvironment { Empty, Inherited };

/// A program that serves this one through a socket. No wait of this class is longer than its limit.
class ChildProcess {
public:
    ChildProcess() = default;
    ~ChildProcess() { end(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts the program with the socket as descriptor DecoderSocket and the standard ones silent, in a
    /// process group of its own, so that an interrupt from the terminal doesn't reach it. False when it can't
    /// be started.
    bool start(const QByteArray& program, int socket, ChildEnvironment environment = ChildEnvironment::Empty);
    bool isRunning() const { return m_child != 0; }
    pid_t id() const { return m_child; } ///< 0 when none runs

    /// Gives it this many seconds of processor time more, after which it is killed, as it is after `total` in
    /// all. False when that doesn't leave enough.
    bool allowTime(rlim_t seconds, rlim_t total) const;

    static constexpr std::chrono::milliseconds usualTimeToEnd{500};
    /// Waits a moment for a child that is about to end by itself. False when it goes on.
    bool endsByItself(std::chrono::milliseconds limit = usualTimeToEnd) const;
    /// Kills the process group, then takes the status of waitpid.
    int end();

private:
    std::atomic<pid_t> m_child = 0;
};

} // namespace tarsel
