// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Encoders.h"

#include "base/Stop.h"
#include "codecs/EncoderColors.h"

namespace tarsel {

namespace {

/// A number in bytes of 7 bits, all but the last with the top bit set.
QByteArray multiByte(int value) {
    QByteArray bytes(1, char(value & 0x7F));
    while ((value >>= 7) != 0)
        bytes.prepend(char(0x80 | (value & 0x7F)));
    return bytes;
}

} // namespace

/// Layout: type 0, fixed header 0, width, height, rows of one bit a pixel, 1 white, padded to bytes.
QByteArray encodeWbmp(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata&) {
    SaveSettings twoColors = settings;
    if (colorFormatOf(settings) != ColorFormat::BlackAndWhite)
        twoColors.ColorFormat = int(ColorFormat::Monochrome);
    const IndexedPicture indexed = encoderIndexes(picture, twoColors, TransparencyOf::Nothing);
    QByteArray bytes = QByteArray(2, '\0') + multiByte(indexed.width()) + multiByte(indexed.height());
    const qsizetype start = bytes.size(), rowSize = packedSize(indexed.width(), 1);
    bytes.resize(start + rowSize * indexed.height());
    for (int y = 0; y < indexed.height(); ++y) {
        raiseIfStopped();
        packIndexes(indexed.row(y), indexed.width(), 1,
                    reinterpret_cast<std::uint8_t*>(bytes.data()) + start + rowSize * y);
    }
    return bytes;
}

} // namespace tarsel
