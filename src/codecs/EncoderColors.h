// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "embedded/EmbeddedMetadata.h"
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

/// Whether a file in this format has gray values, or black and white, and thus no place for a profile of
/// colours.
bool isGrayFormat(ColorFormat format);

struct FittedPicture {
    Picture picture;
    EmbeddedMetadata metadata;
};
/// What an encoder is to write: without a profile, and converted to sRGB, where the file can't hold one.
FittedPicture fittedToFile(const Picture& picture, const SaveSettings& settings,
                           const EmbeddedMetadata& metadata, bool holdsProfile = true);

/// Error 5 for a picture of more pixels in a row or column than the format can say; `format` is for the
/// message.
void requireEncodableSize(const char* format, const Picture& picture, int largestSide);

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
