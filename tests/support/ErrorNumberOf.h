// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <utility>

namespace tarsel::test {

/// The number of the error that `step` throws, 0 when it throws none.
template <class Step>
qint32 errorNumberOf(Step&& step) {
    try {
        std::forward<Step>(step)();
    } catch (const TrappedError& error) {
        return error.number;
    }
    return 0;
}

} // namespace tarsel::test
