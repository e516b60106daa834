// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/Spreading.h"

#include <algorithm>
#include <thread>

namespace tarsel {

namespace {
thread_local Spreading spreadingInForce;
}

Spreading Spreading::overProcessors() {
    return {int(std::clamp(std::thread::hardware_concurrency(), 1U, 4U))};
}

SpreadingScope::SpreadingScope(const Spreading& spreading) : m_previous(spreadingInForce) {
    spreadingInForce = spreading;
}

SpreadingScope::~SpreadingScope() {
    spreadingInForce = m_previous;
}

Spreading currentSpreading() {
    return spreadingInForce;
}

} // namespace tarsel
