// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/Codec.h"

namespace tarsel {

/// JPEG by libjpeg: baseline, progressive and arithmetic coding, 8 bits a sample; gray, YCbCr, RGB, CMYK and
/// YCCK. Warnings are tolerated; a truncated file shows what was decoded, gray below, as long as there
/// was something.
Codec jpegCodec();

inline constexpr int largestJpegSide = 65'500; ///< pixels, of what the library writes

/// The encoded file: 4:2:0, or one channel for `ColorFormat` 2. Transparency is laid on `BackColor`.
QByteArray encodeJpeg(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata);

} // namespace tarsel
