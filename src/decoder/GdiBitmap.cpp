// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/GdiBitmap.h"

#include "base/TrappedError.h"
#include "codecs/BmpReader.h"
#include "pixels/Picture.h"

#include <QtEndian>
#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace tarsel::decoder {

namespace {

constexpr qsizetype fileHeaderSize = 14;
constexpr std::uint32_t coreHeaderSize = 12, windowsHeaderSize = 40;
constexpr std::uint32_t bitFields = 3;

QByteArray fileHeader(qsizetype headerSize, qsizetype bitsSize) {
    QByteArray header("BM");
    const quint32 numbers[] = {quint32(fileHeaderSize + headerSize + bitsSize), 0,
                               quint32(fileHeaderSize + headerSize)};
    for (const quint32 number : numbers) {
        char raw[sizeof number];
        qToLittleEndian(number, raw);
        header.append(raw, sizeof raw);
    }
    return header;
}

QImage imageOf(const Picture& picture) {
    const ConstPixelView view = picture.view();
    const QImage shared(view.data, view.width, view.height, view.stride,
                        view.channels == 4 ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    return shared.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Header, masks and palette of a packed bitmap.
qsizetype sizeBeforeBits(const QByteArray& dib) {
    const ByteReader reader(dib, ByteOrder::Little);
    const std::uint32_t size = reader.dword(0).value_or(0);
    const bool isCore = size == coreHeaderSize;
    const int bits = reader.word(isCore ? 10 : 14).value_or(0);
    const std::uint32_t used = isCore ? 0 : reader.dword(32).value_or(0);
    const std::int64_t colors = used > 0 ? used : bits > 0 && bits <= 8 ? std::int64_t(1) << bits : 0;
    const bool hasMasks = size == windowsHeaderSize && reader.dword(16) == bitFields;
    const std::int64_t end = std::int64_t(size) + (hasMasks ? 12 : 0) + colors * (isCore ? 3 : 4);
    return qsizetype(std::min<std::int64_t>(end, dib.size()));
}

} // namespace

QImage dibImage(const QByteArray& header, const QByteArray& bits) {
    try {
        const QByteArray file = fileHeader(header.size(), bits.size()) + header + bits;
        return imageOf(readBmp(file, {"bitmap", QString(), file.size()}).picture);
    } catch (const TrappedError&) {
        return {}; // the rest of the drawing is worth having
    }
}

QImage packedDibImage(const QByteArray& dib) {
    const qsizetype start = sizeBeforeBits(dib);
    return dibImage(dib.first(start), dib.sliced(start));
}

QImage twoColorImage(const QByteArray& header, const QByteArray& bits) {
    const QByteArray palette("\0\0\0\0\xFF\xFF\xFF\0", 8);
    return dibImage(header.left(windowsHeaderSize) + palette, bits);
}

void clearUnmasked(QImage& image, const QImage& mask, QPoint offset) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QPoint place = QPoint(x, y) + offset;
            if (!mask.valid(place) || mask.pixel(place) != qRgb(255, 255, 255))
                row[x] = 0;
        }
    }
}

void clearColor(QImage& image, QRgb color) {
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::replace(row, row + image.width(), color, QRgb(0));
    }
}

QImage premultipliedDibImage(const QByteArray& header, const QByteArray& bits) {
    constexpr std::int64_t maxPixels = 100'000'000;
    const ByteReader reader(header, ByteOrder::Little);
    const auto width = std::int64_t(std::int32_t(reader.dword(4).value_or(0)));
    const auto signedHeight = std::int64_t(std::int32_t(reader.dword(8).value_or(0)));
    const std::int64_t height = std::abs(signedHeight);
    const bool isPossible = reader.word(14) == 32 && width > 0 && height > 0 && width <= maxPixels / height &&
                            bits.size() / 4 / width >= height;
    if (!isPossible)
        return dibImage(header, bits);
    QImage image(int(width), int(height), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < image.height(); ++y) {
        const std::int64_t row = signedHeight < 0 ? y : height - 1 - y;
        auto* target = reinterpret_cast<quint32*>(image.scanLine(y));
        qFromLittleEndian<quint32>(bits.constData() + row * width * 4, width, target);
    }
    return image;
}

QImage deviceBitmapImage(const QByteArray& bitmap, qsizetype headerSize) {
    const ByteReader reader(bitmap, ByteOrder::Little);
    const auto word = [&](int index) { return int(std::int16_t(reader.word(2 * index).value_or(0))); };
    const int width = word(1), height = word(2), rowBytes = word(3);
    const int bits = reader.byte(9).value_or(0);
    const qsizetype room = bitmap.size() - headerSize;
    if (width <= 0 || height <= 0 || rowBytes <= 0 || (bits != 1 && bits != 24 && bits != 32) ||
        rowBytes * 8 < width * bits || qsizetype(rowBytes) * height > room)
        return {};
    const auto format = bits == 1    ? QImage::Format_Mono
                        : bits == 24 ? QImage::Format_BGR888
                                     : QImage::Format_RGB32;
    const auto* rows = reinterpret_cast<const uchar*>(bitmap.constData() + headerSize);
    QImage image(rows, width, height, rowBytes, format);
    if (bits == 1)
        image.setColorTable({0xFF000000, 0xFFFFFFFF});
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace tarsel::decoder
