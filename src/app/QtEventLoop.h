// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/EventLoop.h"

namespace tarsel {

/// The event loop of the application.
class QtEventLoop final : public EventLoop {
public:
    void yield() override;
    void setBusyPointer(bool busy) override;
    int depth() const override;

private:
    bool m_busy = false;
    int m_yields = 0; ///< within each other
};

} // namespace tarsel
