// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/EncoderColors.h"

#include "base/TrappedError.h"

#include <QCoreApplication>
#include <algorithm>
#include <cstring>

namespace tarsel {

namespace {

Transparency transparencyFor(const SaveSettings& settings, TransparencyOf format) {
    Transparency transparency;
    transparency.isKept = format != TransparencyOf::Nothing;
    if (format == TransparencyOf::BackColor && settings.BackColorTransparent)
        transparency.color = resolveColor(settings.BackColor);
    return transparency;
}

} // namespace

ColorFormat colorFormatOf(const SaveSettings& settings) {
    if (settings.ColorFormat < 0 || settings.ColorFormat > int(ColorFormat::BlackAndWhite))
        fail(ErrorNumber::InvalidCall,
             QCoreApplication::translate("EncoderColors", "unknown colour format %1")
                 .arg(settings.ColorFormat));
    return ColorFormat(settings.ColorFormat);
}

EncodablePicture encoderColors(const Picture& picture, const SaveSettings& settings, TransparencyOf format) {
    return reduceColors(picture, colorFormatOf(settings), transparencyFor(settings, format));
}

IndexedPicture encoderIndexes(const Picture& picture, const SaveSettings& settings, TransparencyOf format) {
    return reduceToPalette(picture, colorFormatOf(settings), transparencyFor(settings, format));
}

void packIndexes(const std::uint8_t* row, int width, int bits, std::uint8_t* packed) {
    if (bits == 8) {
        std::memcpy(packed, row, std::size_t(width));
        return;
    }
    std::fill_n(packed, packedSize(width, bits), std::uint8_t(0));
    const int inByte = 8 / bits;
    for (int x = 0; x < width; ++x)
        packed[x / inByte] |= std::uint8_t(row[x] << (8 - bits - x % inByte * bits));
}

} // namespace tarsel
