// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

namespace tarsel {

/// Raises error 481 for a picture file that has no reader, or that its reader refused.
[[noreturn]] void failLoading(const QString& fact);
[[noreturn]] void failLoading(const TrappedError& reason);

} // namespace tarsel
