// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// PNG by libpng: every colour type and depth, interlaced or not, transparency by channel, palette or key;
/// gamma is not applied. A truncated file shows the rows it has, white below, as long as it has one.
Codec pngCodec();

/// The encoded file: true colour, with transparency where there is some, gray or a palette of 8, 4 or 1 bit.
QByteArray encodePng(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
