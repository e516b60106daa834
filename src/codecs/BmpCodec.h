// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// BMP by Qt's reader: the Windows and OS/2 headers of 12 to 124 bytes, 1 to 32 bits, run lengths, bit
/// fields.
Codec bmpCodec();

} // namespace tarsel
