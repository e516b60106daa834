// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/Interrupt.h"

#include "base/Progress.h"

#include <csignal>

namespace tarsel::cli {

namespace {

std::atomic<bool> interrupted = false;
static_assert(std::atomic<bool>::is_always_lock_free, "the signal handler writes them");

void onSignal(int) {
    interrupted = true;
    CancelRequested = true;
}

void setAction(void (*handler)(int), int flags) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

InterruptScope::InterruptScope() {
    interrupted = false;
    CancelRequested = false;
    setAction(onSignal, int(SA_RESETHAND | SA_RESTART));
}

InterruptScope::~InterruptScope() {
    setAction(SIG_DFL, 0);
}

bool wasInterrupted() {
    return interrupted;
}

} // namespace tarsel::cli
