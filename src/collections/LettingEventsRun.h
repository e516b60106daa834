// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/EventLoop.h"
#include "collections/WorkQueue.h"

namespace tarsel {

/// Waits on the main thread for a value of another one. Events run meanwhile.
template <class Value>
void waitLettingEventsRun(Awaited<Value>& awaited) {
    constexpr std::chrono::milliseconds betweenEvents(10);
    while (!awaited.isThereWithin(betweenEvents))
        service<EventLoop>().yield();
}

} // namespace tarsel
