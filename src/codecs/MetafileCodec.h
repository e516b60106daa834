// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

// Drawings, which the decoder process draws at any size: their own is that of the header at 96 dots per inch.
// They are transparent where nothing is drawn. Content counts only together with one of the extensions.

/// Windows metafiles, placeable and plain.
Codec wmfCodec();

/// Enhanced metafiles. Of those with EMF+ records the EMF part is drawn.
Codec emfCodec();

} // namespace tarsel
