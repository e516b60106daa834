// SPDX-License-Identifier: GPL-3.0-or-later
#include "acquisition/scanner/ScanLines.h"

#include "bytes/Numbers.h"

#include <cstring>

namespace tarsel {

namespace {

constexpr int samplesPerPixel(ScanFrameFormat format) {
    return format == ScanFrameFormat::Rgb ? 3 : 1;
}

/// Sample i of a line of bytes, or of words that lose their low byte.
template <int depth>
std::uint8_t sample(const std::uint8_t* line, std::ptrdiff_t i) {
    constexpr int highByte = nativeOrder == ByteOrder::Big ? 0 : 1;
    return depth == 8 ? line[i] : line[2 * i + highByte];
}

std::uint8_t bit(const std::uint8_t* bytes, int x, int bytesPerEight = 1) {
    return (bytes[std::ptrdiff_t(x / 8) * bytesPerEight] >> (7 - x % 8)) & 1 ? 255 : 0;
}

template <int depth>
void convertGray(const std::uint8_t* line, int width, std::uint8_t* pixels) {
    for (int x = 0; x < width; ++x, pixels += 3)
        pixels[0] = pixels[1] = pixels[2] = sample<depth>(line, x);
}

template <int depth>
void convertChannel(const std::uint8_t* line, int width, std::uint8_t* channel) {
    for (int x = 0; x < width; ++x)
        channel[std::ptrdiff_t(3) * x] = sample<depth>(line, x);
}

void convertBits(ScanFrameFormat format, const std::uint8_t* line, int width, std::uint8_t* pixels) {
    for (int x = 0; x < width; ++x, pixels += 3) {
        if (format == ScanFrameFormat::Gray)
            pixels[0] = pixels[1] = pixels[2] = std::uint8_t(~bit(line, x));
        else if (format == ScanFrameFormat::Rgb)
            for (int channel = 0; channel < 3; ++channel)
                pixels[channel] = bit(line + channel, x, 3);
        else
            pixels[int(format) - int(ScanFrameFormat::Red)] = bit(line, x);
    }
}

template <int depth>
void convertSamples(ScanFrameFormat format, const std::uint8_t* line, int width, std::uint8_t* pixels) {
    if (format == ScanFrameFormat::Gray)
        convertGray<depth>(line, width, pixels);
    else if (format != ScanFrameFormat::Rgb)
        convertChannel<depth>(line, width, pixels + (int(format) - int(ScanFrameFormat::Red)));
    else if (depth == 8)
        std::memcpy(pixels, line, std::size_t(width) * 3);
    else
        for (std::ptrdiff_t i = 0; i < std::ptrdiff_t(width) * 3; ++i)
            pixels[i] = sample<depth>(line, i);
}

} // namespace

bool isSupportedFrame(const ScannerFrame& frame) {
    const bool isKnown = frame.format >= int(ScanFrameFormat::Gray) &&
                         frame.format <= int(ScanFrameFormat::Blue) &&
                         (frame.depth == 1 || frame.depth == 8 || frame.depth == 16);
    if (!isKnown || frame.pixelsPerLine <= 0)
        return false;
    const std::int64_t samples = samplesPerPixel(ScanFrameFormat(frame.format));
    const std::int64_t needed = frame.depth == 1
                                    ? (std::int64_t(frame.pixelsPerLine) + 7) / 8 * samples
                                    : std::int64_t(frame.pixelsPerLine) * samples * (frame.depth / 8);
    return frame.bytesPerLine >= needed;
}

void convertScanLine(const ScannerFrame& frame, const std::uint8_t* line, std::uint8_t* pixels) {
    const auto format = ScanFrameFormat(frame.format);
    if (frame.depth == 1)
        convertBits(format, line, frame.pixelsPerLine, pixels);
    else if (frame.depth == 8)
        convertSamples<8>(format, line, frame.pixelsPerLine, pixels);
    else
        convertSamples<16>(format, line, frame.pixelsPerLine, pixels);
}

} // namespace tarsel
