// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Encoders.h"

#include "base/Stop.h"
#include "bytes/Numbers.h"
#include "codecs/ColorProfile.h"
#include "codecs/EncoderColors.h"
#include "codecs/Resolution.h"
#include "embedded/ResourceBlocks.h"
#include "pixels/Flatten.h"

#include <array>
#include <cmath>
#include <functional>
#include <vector>

namespace tarsel {

namespace {

constexpr int largestSide = 30'000;
constexpr int longestRun = 128;
enum Mode { Bitmap = 0, Gray = 1, RgbMode = 3 };
constexpr quint16 resolutionResource = 0x03ED, profileResource = 0x040F, exifResource = 0x0422,
                  xmpResource = 0x0424;
constexpr int transparencyChannel = -1; // in a layer; colours count from 0

QByteArray word(int value) {
    return numberBytes<QByteArray>(std::uint16_t(value), ByteOrder::Big);
}
QByteArray dword(std::int64_t value) {
    return numberBytes<QByteArray>(std::uint32_t(value), ByteOrder::Big);
}
QByteArray withSize(const QByteArray& section) {
    return dword(section.size()) + section;
}

/// Runs: a count below 128 precedes count + 1 bytes, one above 128 a byte that stands 257 - count times.
void appendPacked(QByteArray& packed, const std::vector<std::uint8_t>& row) {
    const auto runAt = [&](std::size_t at) {
        std::size_t run = 1;
        while (run < longestRun && at + run < row.size() && row[at + run] == row[at])
            ++run;
        return run;
    };
    for (std::size_t at = 0; at < row.size();) {
        if (const std::size_t run = runAt(at); run > 2) {
            packed.append(char(257 - run)).append(char(row[at]));
            at += run;
            continue;
        }
        const std::size_t start = at;
        while (at < row.size() && at - start < longestRun && runAt(at) <= 2)
            ++at;
        packed += char(at - start - 1);
        packed.append(reinterpret_cast<const char*>(row.data()) + start, qsizetype(at - start));
    }
}

struct PackedRows {
    QByteArray sizes; ///< 16 bits a row
    QByteArray rows;
};

/// One channel; `fill(y, row)` makes its rows.
PackedRows packedRows(int height, qsizetype rowSize,
                      const std::function<void(int y, std::vector<std::uint8_t>& row)>& fill) {
    PackedRows packed;
    std::vector<std::uint8_t> row(static_cast<std::size_t>(rowSize));
    for (int y = 0; y < height; ++y) {
        raiseIfStopped();
        fill(y, row);
        const qsizetype before = packed.rows.size();
        appendPacked(packed.rows, row);
        packed.sizes += word(int(packed.rows.size() - before));
    }
    return packed;
}

PackedRows packedChannel(ConstPixelView view, int channel) {
    return packedRows(view.height, view.width, [&](int y, std::vector<std::uint8_t>& row) {
        for (int x = 0; x < view.width; ++x)
            row[std::size_t(x)] = view.pixel(x, y)[channel];
    });
}

constexpr char packedMark[] = {0, 1};

QByteArray mergedPixels(const std::vector<PackedRows>& channels) {
    QByteArray bytes(packedMark, sizeof packedMark);
    for (const PackedRows& channel : channels)
        bytes += channel.sizes;
    for (const PackedRows& channel : channels)
        bytes += channel.rows;
    return bytes;
}

/// The one layer of a picture with transparency: without it the fourth channel is no more than a selection. A
/// negative count of layers says that the merged picture is transparent too.
QByteArray layerSection(ConstPixelView view) {
    QByteArray record = dword(0) + dword(0) + dword(view.height) + dword(view.width) + word(4), pixels;
    for (const int channel : {3, 0, 1, 2}) {
        const PackedRows packed = packedChannel(view, channel);
        const QByteArray bytes = QByteArray(packedMark, sizeof packedMark) + packed.sizes + packed.rows;
        record += word(channel == 3 ? transparencyChannel : channel) + dword(bytes.size());
        pixels += bytes;
    }
    constexpr char opaqueVisible[] = {char(255), 0, 0, 0};
    const QByteArray extra = dword(0) + dword(0) + QByteArray("\7Picture", 8); // mask, blending, name
    record += "8BIMnorm" + QByteArray(opaqueVisible, 4) + withSize(extra);
    QByteArray layers = word(-1) + record + pixels;
    if (layers.size() % 2)
        layers += '\0';
    return withSize(layers) + dword(0); // no global mask
}

/// Pixels an inch as 16.16, shown by inch, width in inches; the same for the height.
QByteArray resolutionData(const Resolution& resolution) {
    const auto fixed = [](double value) { return dword(std::llround(value * 65536)); };
    return fixed(resolution.horizontal) + word(1) + word(1) + fixed(resolution.vertical) + word(1) + word(1);
}

/// Readers refuse a file over damaged resources, of which only the IPTC data are kept, and over an empty
/// block of IPTC data.
ResourceBlocks carriedResources(const QByteArray& resources) {
    ResourceBlocks blocks(resources);
    const QByteArray iptc = blocks.data(ResourceBlocks::iptcNumber);
    if (!blocks.isComplete())
        blocks = ResourceBlocks(ResourceBlocks::block(ResourceBlocks::iptcNumber, iptc));
    if (iptc.isEmpty())
        blocks.replace(ResourceBlocks::iptcNumber, {});
    return blocks;
}

QByteArray resourceSection(const EmbeddedMetadata& metadata) {
    ResourceBlocks blocks = carriedResources(metadata.resources);
    if (const Resolution resolution = resolutionOf(metadata); resolution.horizontal > 0)
        blocks.replace(resolutionResource, resolutionData(resolution));
    if (isRgbProfile(metadata.iccProfile))
        blocks.replace(profileResource, metadata.iccProfile);
    blocks.replace(exifResource, metadata.exif);
    blocks.replace(xmpResource, metadata.xmp);
    return withSize(blocks.bytes());
}

QByteArray headOf(int channels, int width, int height, int bits, Mode mode) {
    return "8BPS" + word(1) + QByteArray(6, '\0') + word(channels) + dword(height) + dword(width) +
           word(bits) + word(mode);
}

QByteArray trueColorFile(const Picture& picture, const EmbeddedMetadata& metadata) {
    const ConstPixelView view = picture.view();
    Picture merged(view.width, view.height, 3); // mixed with white where it is transparent
    const PixelView target = merged.edit();
    for (int y = 0; y < view.height; ++y)
        flattenRow(view, y, white, target.row(y));
    std::vector<PackedRows> channels;
    for (int channel = 0; channel < 3; ++channel)
        channels.push_back(packedChannel(merged.view(), channel));
    if (view.channels == 4)
        channels.push_back(packedChannel(view, 3));
    return headOf(view.channels, view.width, view.height, 8, RgbMode) + dword(0) + resourceSection(metadata) +
           withSize(view.channels == 4 ? layerSection(view) : QByteArray()) + mergedPixels(channels);
}

/// A bitmap, whose ones are ink, or gray values.
QByteArray grayFile(const IndexedPicture& picture, const EmbeddedMetadata& metadata) {
    const Mode mode = picture.bits == 1 ? Bitmap : Gray;
    const int bits = mode == Bitmap ? 1 : 8;
    const auto fill = [&](int y, std::vector<std::uint8_t>& row) {
        packIndexes(picture.row(y), picture.width(), bits, row.data());
        for (std::uint8_t& byte : row)
            byte = mode == Bitmap ? std::uint8_t(~byte) : picture.palette[byte].red;
    };
    return headOf(1, picture.width(), picture.height(), bits, mode) + dword(0) + resourceSection(metadata) +
           dword(0) + mergedPixels({packedRows(picture.height(), packedSize(picture.width(), bits), fill)});
}

} // namespace

QByteArray encodePsd(const Picture& picture, const SaveSettings& settings, const EmbeddedMetadata& metadata) {
    requireEncodableSize("PSD", picture, largestSide);
    if (colorFormatOf(settings) == ColorFormat::TrueColor)
        return trueColorFile(picture, metadata);
    const IndexedPicture indexed = encoderIndexes(picture, settings, TransparencyOf::Nothing);
    return indexed.isGray ? grayFile(indexed, metadata) : trueColorFile(withPaletteColors(indexed), metadata);
}

} // namespace tarsel
