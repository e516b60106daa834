// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/TrappedError.h"

namespace tarsel {

/// Error 0x8000FFFF of a file whose decoder's process could not be started, crashed, or took too long. It may
/// be the system's fault; reading the file once more now would only cost the same again.
struct DecoderLost : TrappedError {};

} // namespace tarsel
