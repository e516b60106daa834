// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Stop.h"

#include "base/TrappedError.h"

namespace tarsel {

namespace {
thread_local std::stop_token tokenInForce;
}

StopScope::StopScope(const std::stop_token& stop) : m_previous(tokenInForce) {
    if (stop.stop_possible())
        tokenInForce = stop;
}

StopScope::~StopScope() {
    tokenInForce = m_previous;
}

std::stop_token currentStop() {
    return tokenInForce;
}

void raiseIfStopped(const std::stop_token& stop, std::source_location where) {
    if (stop.stop_requested())
        fail(ErrorNumber::Interrupted, {}, where);
}

} // namespace tarsel
