// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

// Keys of text chunks.
constexpr char xmpKeyword[] = "XML:com.adobe.xmp";
/// Where other programs put IPTC data and image resources, which PNG has no chunk for: as hexadecimal text.
constexpr char resourcesKeyword[] = "Raw profile type iptc";

/// PNG by libpng: every colour type and depth, interlaced or not, transparency by channel, palette or key.
/// A file with gamma or primaries and no profile gets one. A truncated file shows the rows it has, white
/// below, as long as it has one.
Codec pngCodec();

/// The encoded file: true colour, with transparency where there is some, gray or a palette of 8, 4 or 1 bit.
QByteArray encodePng(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
