// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pixels/IndexedPicture.h"

#include <QByteArray>

namespace tarsel {

/// The pixels of a GIF frame: the bits of a literal code, blocks of codes with their length, an empty block.
/// Codes are packed from the low bit up and grow from one bit more than a literal to 12 bits.
/// `literalBits` is 2 to 8. Without compression each code stands for one pixel.
QByteArray lzwCodes(const IndexedPicture& picture, int literalBits, bool compressed);

} // namespace tarsel
