// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// WBMP of type 0. It has no signature and is recognised by a header that agrees with the size of the file.
Codec wbmpCodec();

} // namespace tarsel
