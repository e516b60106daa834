// SPDX-License-Identifier: MIT
#pragma once

#include "bytes/Descriptor.h"

#include <chrono>
#include <stop_token>

namespace tarsel {

/// Becomes readable when a stop is requested, so that poll sees it.
class StopDescriptor {
public:
    explicit StopDescriptor(const std::stop_token& stop);
    int number() const { return m_event.number(); } ///< -1, which poll skips, where no stop can come

private:
    struct Wake {
        int event;
        void operator()() const;
    };
    Descriptor m_event;
    std::stop_callback<Wake> m_onStop;
};

/// Waits until one of the two can be read, or the deadline has passed. False in the latter case.
bool waitForEither(int one, int other, std::chrono::steady_clock::time_point deadline);

} // namespace tarsel
