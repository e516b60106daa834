// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

namespace tarsel {

/// Error 0x8000FFFF of a file that crashed its decoder's process, or kept it busy beyond the time limit.
/// Reading it once more would only cost the same again.
struct DecoderLost : TrappedError {};

} // namespace tarsel
