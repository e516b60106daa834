// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// GIF: the first frame on its canvas, transparent where nothing is drawn.
Codec gifCodec();

} // namespace tarsel
