// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <limits>

namespace tarsel {

/// An edge computed from numbers of a row. Error 6 when it doesn't fit a coordinate.
inline int edge(qint64 value) {
    using Limits = std::numeric_limits<int>;
    if (value < Limits::min() || value > Limits::max())
        fail(ErrorNumber::Overflow, QCoreApplication::translate("Edge", "an edge at %1").arg(value));
    return int(value);
}

} // namespace tarsel
