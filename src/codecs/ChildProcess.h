// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <atomic>
#include <sys/resource.h>
#include <sys/types.h>

namespace tarsel {

/// A program that serves this one through a socket. No wait of this class is longer than its limit.
class ChildProcess {
public:
    ChildProcess() = default;
    ~ChildProcess() { end(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts the program with the socket as descriptor DecoderSocket and the standard ones silent, in a
    /// process group of its own, so that an interrupt from the terminal doesn't reach it, and with an empty
    /// environment. False when it can't be started.
    bool start(const QByteArray& program, int socket);
    bool isRunning() const { return m_child != 0; }
    pid_t id() const { return m_child; } ///< 0 when none runs

    /// Gives it this many seconds of processor time more, after which it is killed, as it is after `total` in
    /// all. False when that doesn't leave enough.
    bool allowTime(rlim_t seconds, rlim_t total) const;

    /// Waits a moment for a child that is about to end by itself. False when it goes on.
    bool endsByItself() const;
    /// Kills the process group, then takes the status of waitpid.
    int end();

private:
    std::atomic<pid_t> m_child = 0;
};

} // namespace tarsel
