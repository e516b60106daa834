// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// PSD: the merged picture, with the metadata among the image resources.
Codec psdCodec();

} // namespace tarsel
