// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "cli/Command.h"

#include <memory>
#include <stop_token>

namespace tarsel::cli {

/// While one lives, the first SIGINT or SIGTERM asks the running loop to stop after the current file: it sets
/// CancelRequested and requests a stop, which ends the wait for a file that is being loaded. Another one
/// ends the process at once, unless it comes together with the first.
class InterruptScope {
public:
    InterruptScope();
    ~InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;

    std::stop_token stop() const;

private:
    class Watcher;
    std::unique_ptr<Watcher> m_watcher;
};

/// Whether such a signal came since the scope began.
bool wasInterrupted();

/// Of a command whose work could be interrupted.
ExitStatus exitStatus(bool isAllDone);

} // namespace tarsel::cli
