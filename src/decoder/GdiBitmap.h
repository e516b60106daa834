// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "bytes/ByteReader.h"

#include <QByteArray>
#include <QImage>

namespace tarsel::decoder {

/// A device-independent bitmap: its header with masks and palette, and its rows. Null when it makes no sense.
QImage dibImage(const QByteArray& header, const QByteArray& bits);

/// The same with the rows right after the palette.
QImage packedDibImage(const QByteArray& dib);

/// One of one bit a pixel, with ones white whatever its palette says.
QImage twoColorImage(const QByteArray& header, const QByteArray& bits);

/// Makes the pixels clear where the mask, whose place of a pixel is further by `offset`, isn't white.
void clearUnmasked(QImage& image, const QImage& mask, QPoint offset);
/// Makes all pixels of a colour clear.
void clearColor(QImage& image, QRgb color);

/// 32 bits a pixel with alpha, colours multiplied by it: what AlphaBlend takes for source.
QImage premultipliedDibImage(const QByteArray& header, const QByteArray& bits);

/// A device-dependent bitmap: type, width, height, bytes of a row, planes, bits of a pixel, address; rows.
QImage deviceBitmapImage(const QByteArray& bitmap, qsizetype headerSize);

} // namespace tarsel::decoder
