// SPDX-License-Identifier: GPL-3.0-or-later
#include "decoder/MetafileDecoding.h"

#include "codecs/PictureLimit.h"
#include "decoder/CodePages.h"
#include "decoder/MetafilePlayers.h"

#include <QLoggingCategory>
#include <algorithm>
#include <cstdio>

namespace tarsel::decoder {

namespace {

const FontShelf& fonts() {
    static const FontShelf shelf;
    return shelf;
}

DecoderReply replyOf(const char* message, int channels = 0) {
    DecoderReply reply;
    reply.channels = channels;
    std::snprintf(reply.message, sizeof reply.message, "%s", message);
    return reply;
}

bool isOpaque(const QImage& image) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        if (!std::all_of(row, row + image.width(), [](QRgb pixel) { return qAlpha(pixel) == 255; }))
            return false;
    }
    return true;
}

/// Rows from the top, red first, colours not multiplied by alpha; over the image's own bytes, which no pixel
/// outgrows.
void storePixels(const QImage& image, int channels, std::uint8_t* target) {
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = qUnpremultiply(row[x]);
            *target++ = std::uint8_t(qRed(pixel));
            *target++ = std::uint8_t(qGreen(pixel));
            *target++ = std::uint8_t(qBlue(pixel));
            if (channels == 4)
                *target++ = std::uint8_t(qAlpha(pixel));
        }
    }
}

} // namespace

void prepareLibraries() {
    // Qt warns of drawing that makes no sense; the first category reads files that configure logging.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QLoggingCategory::defaultCategory();
    fonts();
    prepareCodePages();
    largestPicture();
}

DecoderReply decode(const DecoderRequest& request, std::span<const std::uint8_t> file, std::uint8_t* pixels) {
    const auto header = readMetafileHeader(file);
    if (!header)
        return replyOf("no header");
    QImage image(pixels, request.width, request.height, qsizetype(request.width) * 4,
                 QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return replyOf("a size that can't be drawn");
    image.fill(Qt::transparent);
    const auto play = header->isEnhanced ? playEmf : playWmf;
    const Played played = play(file, *header, fonts(), image);
    if (played == Played::Nothing)
        return replyOf("it draws nothing");
    const int channels = isOpaque(image) ? 3 : 4;
    storePixels(image, channels, pixels);
    return replyOf(played == Played::All ? "" : "file is truncated or damaged", channels);
}

} // namespace tarsel::decoder
