// SPDX-License-Identifier: MIT
#include "bytes/StopDescriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <poll.h>
#include <sys/eventfd.h>

namespace tarsel {

StopDescriptor::StopDescriptor(const std::stop_token& stop) :
    m_event(stop.stop_possible() ? ::eventfd(0, EFD_CLOEXEC) : -1), m_onStop(stop, Wake{m_event.number()}) {}

void StopDescriptor::Wake::operator()() const {
    ::eventfd_write(event, 1);
}

bool waitForEither(int one, int other, std::chrono::steady_clock::time_point deadline) {
    pollfd both[] = {{one, POLLIN, 0}, {other, POLLIN, 0}};
    int ready = 0;
    do {
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
        ready = ::poll(both, 2, int(std::max<std::int64_t>(left.count(), 0)));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

} // namespace tarsel
