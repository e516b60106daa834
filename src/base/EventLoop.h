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
};

} // namespace tarsel
