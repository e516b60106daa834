// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// PCX: 1 to 4 planes of 1 to 8 bits, with indexes or the colours themselves, a fourth plane of bytes being
/// transparency. A truncated file shows the rows it has, the lowest colour below.
Codec pcxCodec();

} // namespace tarsel
