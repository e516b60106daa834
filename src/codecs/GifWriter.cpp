// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Encoders.h"

#include "bytes/Numbers.h"
#include "codecs/EncoderColors.h"
#include "codecs/LzwCodes.h"

#include <algorithm>

namespace tarsel {

namespace {

constexpr int largestSide = 65'535;
constexpr qsizetype blockSize = 255;

// "GIF89a", width 16, height 16, flags, background, aspect; the palette of 2^n colours; extensions, which
// begin with 0x21; the frame: 0x2C, left 16, top 16, width 16, height 16, flags, codes; 0x3B.
constexpr char extensionMark = 0x21, commentLabel = char(0xFE), applicationLabel = char(0xFF),
               graphicControl = char(0xF9);
constexpr char frameMark = 0x2C, endMark = 0x3B;
constexpr int hasPalette = 0x80, eightBitsAChannel = 0x70;

int bitsOf(std::size_t colors) {
    int bits = 1;
    while (std::size_t(1) << bits < colors)
        ++bits;
    return bits;
}

QByteArray word(int value) {
    return numberBytes<QByteArray>(std::uint16_t(value), ByteOrder::Little);
}

QByteArray inBlocks(const QByteArray& data) {
    QByteArray blocks;
    for (qsizetype at = 0; at < data.size(); at += blockSize) {
        const QByteArray block = data.mid(at, blockSize);
        blocks += char(block.size()) + block;
    }
    return blocks + '\0';
}

/// The packet follows its name without blocks. A reader that knows nothing of it takes its letters for
/// lengths, and ends up in a ramp of bytes that leads each of them to the end.
QByteArray xmpExtension(const QByteArray& xmp) {
    if (xmp.isEmpty() || xmp.contains('\0')) // such as UTF-16, which would end the blocks
        return {};
    QByteArray ramp(1, char(1));
    for (int length = 255; length >= 0; --length)
        ramp += char(length);
    const QByteArray head = QByteArray(1, extensionMark) + applicationLabel + char(11) + "XMP DataXMP";
    return head + xmp + ramp + '\0';
}

QByteArray extensionsOf(const EmbeddedMetadata& metadata) {
    QByteArray bytes;
    bytes += xmpExtension(metadata.xmp);
    for (const QByteArray& comment : metadata.comments)
        if (!comment.isEmpty())
            bytes += QByteArray(1, extensionMark) + commentLabel + inBlocks(comment);
    return bytes;
}

QByteArray transparencyOf(const IndexedPicture& picture) {
    if (picture.transparentIndex < 0)
        return {};
    constexpr char isTransparent = 1;
    return QByteArray(1, extensionMark) + graphicControl + char(4) + isTransparent + word(0) +
           char(picture.transparentIndex) + '\0';
}

} // namespace

QByteArray encodeGif(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    requireEncodableSize("GIF", picture, largestSide);
    const IndexedPicture indexed = encoderIndexes(picture, settings, TransparencyOf::BackColor);
    const int bits = bitsOf(indexed.palette.size());
    const QByteArray size = word(indexed.width()) + word(indexed.height());
    QByteArray bytes = "GIF89a" + size + char(hasPalette | eightBitsAChannel | (bits - 1)) + '\0' + '\0';
    for (const Rgb color : indexed.palette)
        bytes.append(char(color.red)).append(char(color.green)).append(char(color.blue));
    bytes.append(3 * ((qsizetype(1) << bits) - qsizetype(indexed.palette.size())), '\0');
    bytes += extensionsOf(metadata) + transparencyOf(indexed);
    bytes += frameMark + word(0) + word(0) + size + '\0';
    return bytes + lzwCodes(indexed, std::max(2, bits), settings.GifCompression) + endMark;
}

} // namespace tarsel
