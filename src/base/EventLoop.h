// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/Service.h"

namespace tarsel {

/// What long loops on the main thread ask of the running event loop.
class EventLoop {
public:
    virtual ~EventLoop() = default;
    /// Handles pending events: called once per item.
    virtual void yield() = 0;
    /// One call takes back any number of earlier ones.
    virtual void setBusyPointer(bool busy) = 0;
    /// How many loops of events, calls of `yield` among them, are waiting for each other; 0 where there are
    /// none.
    virtual int depth() const { return 0; }
};

} // namespace tarsel
