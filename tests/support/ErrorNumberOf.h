// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <utility>

namespace tarsel::test {

/// The error that `step` throws; number 0 when it throws none.
template <class Step>
TrappedError errorOf(Step&& step) {
    try {
        std::forward<Step>(step)();
    } catch (const TrappedError& error) {
        return error;
    }
    return {.number = 0, .description = {}};
}

template <class Step>
qint32 errorNumberOf(Step&& step) {
    return errorOf(std::forward<Step>(step)).number;
}

} // namespace tarsel::test
