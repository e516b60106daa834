// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

// Formats that the decoder process reads. Their signatures and headers are checked here first.

/// GIF: the first frame on its canvas, transparent where nothing is drawn.
Codec gifCodec();

/// WBMP of type 0. It has no signature and is recognised by a header that agrees with the size of the file.
Codec wbmpCodec();

} // namespace tarsel
