// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/EncoderColors.h"

#include "base/TrappedError.h"
#include "codecs/ColorProfile.h"
#include "codecs/KeptReductions.h"

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

bool isGrayFormat(ColorFormat format) {
    return format != ColorFormat::TrueColor && format != ColorFormat::Colors256 &&
           format != ColorFormat::Colors16;
}

FittedPicture fittedToFile(const Picture& picture, const SaveSettings& settings,
                           const EmbeddedMetadata& metadata, bool holdsProfile) {
    if (holdsProfile && !isGrayFormat(colorFormatOf(settings)))
        return {picture, metadata};
    FittedPicture fitted{converted(picture, metadata.iccProfile), metadata};
    fitted.metadata.iccProfile.clear();
    return fitted;
}

void requireEncodableSize(const char* format, const Picture& picture, int largestSide) {
    if (picture.width() <= largestSide && picture.height() <= largestSide)
        return;
    const QString text = QCoreApplication::translate(
        "EncoderColors", "%1 files hold pictures of at most %2 x %2 pixels, not of %3 x %4");
    throw TrappedError{
        ErrorNumber::InvalidCall,
        text.arg(QLatin1String(format)).arg(largestSide).arg(picture.width()).arg(picture.height())};
}

EncodablePicture encoderColors(const Picture& picture, const SaveSettings& settings, TransparencyOf format) {
    if (colorFormatOf(settings) == ColorFormat::TrueColor)
        return reduceColors(picture, ColorFormat::TrueColor, transparencyFor(settings, format));
    return encoderIndexes(picture, settings, format);
}

IndexedPicture encoderIndexes(const Picture& picture, const SaveSettings& settings, TransparencyOf format) {
    const Transparency transparency = transparencyFor(settings, format);
    if (KeptReductions* kept = KeptReductions::current())
        return kept->reduced(picture, colorFormatOf(settings), transparency);
    return reduceToPalette(picture, colorFormatOf(settings), transparency);
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
