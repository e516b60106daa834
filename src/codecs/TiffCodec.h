// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// TIFF by libtiff: all pages, strips and tiles, every compression that libtiff knows, 1 to 64 bits a sample,
/// integers and floating point, gray, RGB, palette, YCbCr, CMYK, L*a*b*. Pixels come as they are stored;
/// the orientation stays an attribute.
Codec tiffCodec();

/// The encoded file of one page: 24 bits, 32 with transparency, gray or a palette of 8 or 4 bits, or black
/// and white of one.
QByteArray encodeTiff(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
