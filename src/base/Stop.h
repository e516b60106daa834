// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <source_location>
#include <stop_token>

namespace tarsel {

/// Makes a token the one that the work on this thread obeys, for as long as the scope lives; scopes nest. A
/// token that no stop can come to leaves the outer one in force.
class StopScope {
public:
    explicit StopScope(const std::stop_token& stop);
    ~StopScope();
    StopScope(const StopScope&) = delete;
    StopScope& operator=(const StopScope&) = delete;

private:
    std::stop_token m_previous;
};

/// The token of this thread's innermost scope.
std::stop_token currentStop();

/// Error 18 once a stop was requested. Long work asks between its steps.
void raiseIfStopped(const std::stop_token& stop = currentStop(),
                    std::source_location where = std::source_location::current());

} // namespace tarsel
