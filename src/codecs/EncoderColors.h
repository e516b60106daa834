// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "pixels/ColorReduction.h"

#include <vector>

namespace tarsel {

/// What a format can say of transparency.
enum class TransparencyOf {
    Nothing,   ///< pictures are laid on white
    Pixels,    ///< that of the picture is kept
    BackColor, ///< and BackColor becomes transparent when BackColorTransparent
};

/// The number of SaveSettings as an entry; error 5 for a number that is none.
ColorFormat colorFormatOf(const SaveSettings& settings);

/// The picture in the colours that the settings ask for.
EncodablePicture encoderColors(const Picture& picture, const SaveSettings& settings, TransparencyOf format);
/// The same for a format that has nothing but indexes: true colour becomes 256 colours.
IndexedPicture encoderIndexes(const Picture& picture, const SaveSettings& settings, TransparencyOf format);

/// Bytes of a row of indexes of 1, 4 or 8 bits, from the high bit down.
inline qsizetype packedSize(int width, int bits) {
    return (qsizetype(width) * bits + 7) / 8;
}
void packIndexes(const std::uint8_t* row, int width, int bits, std::uint8_t* packed);

} // namespace tarsel
