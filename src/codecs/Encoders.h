// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

// Encoders of our own, one file each. All return the encoded file; error 5 for a picture that is larger than
// the format can say.

/// 24 bits, or indexes of 8, 4 or 1 bit. Few readers look for a profile, so it has none.
QByteArray encodeBmp(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// GIF 89a of one frame, with LZW, or with codes that stand for one pixel each. XMP and comments are
/// extensions.
QByteArray encodeGif(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// Version 5 with runs: three planes of bytes, one of bytes with its palette at the end, or four planes of
/// bits. Black and white have four as well: readers disagree about which of the two is 0 in a single plane.
QByteArray encodePcx(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// One page. True colour and 256 grays are JPEG data of the settings' quality, the rest is deflated, and so
/// are pictures that JPEG can't hold.
QByteArray encodePdf(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// The merged picture with packed rows: RGB, with a layer where there is transparency, gray or a bitmap. Few
/// colours are written as RGB, because not every reader knows the mode with a palette.
QByteArray encodePsd(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// WBMP of type 0: black and white.
QByteArray encodeWbmp(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

/// PDF is written and not read: no content is recognised as such.
Codec pdfCodec();

} // namespace tarsel
