// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace tarsel::cli {

/// While one lives, the first SIGINT or SIGTERM asks the running loop to stop behind the file at hand (it
/// sets CancelRequested); the second ends the process at once.
class InterruptScope {
public:
    InterruptScope();
    ~InterruptScope();
    InterruptScope(const InterruptScope&) = delete;
    InterruptScope& operator=(const InterruptScope&) = delete;
};

/// Whether such a signal came since the scope began.
bool wasInterrupted();

} // namespace tarsel::cli
