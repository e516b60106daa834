// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <exception>
#include <utility>

namespace tarsel {

/// Runs `body` where errors are to be ignored. Returns true when it ran to its end.
template <class Body>
bool ignoringErrors(Body&& body) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const TrappedError&) {
    } catch (const std::exception&) {
    }
    return false;
}

} // namespace tarsel
