// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/Resolution.h"

#include "bytes/ByteReader.h"
#include "embedded/ExifBlock.h"
#include "embedded/ResourceBlocks.h"

namespace tarsel {

namespace {

constexpr quint16 xResolution = 0x011A, yResolution = 0x011B, resolutionUnit = 0x0128;
constexpr quint16 centimeter = 3;
constexpr quint16 resolutionResource = 0x03ED;
constexpr double largest = 100'000; // beyond it a number is a fault of its file

double rationalOf(const ExifBlock& block, quint16 tag) {
    const ExifEntry* entry = block.find(ExifGroup::Image, tag);
    if (!entry || !entry->hasValue || entry->type != ExifType::Rational)
        return 0;
    const double denominator = block.read32(entry->valuePosition + 4);
    return denominator == 0 ? 0 : block.read32(entry->valuePosition) / denominator;
}

Resolution ofExif(const QByteArray& exif) {
    const auto block = ExifBlock::read(exif);
    if (!block)
        return {};
    const ExifEntry* unit = block->find(ExifGroup::Image, resolutionUnit);
    const bool isMetric = unit && unit->hasValue && unit->type == ExifType::Short &&
                          block->read16(unit->valuePosition) == centimeter;
    const double factor = isMetric ? 2.54 : 1;
    return {rationalOf(*block, xResolution) * factor, rationalOf(*block, yResolution) * factor};
}

/// Layout: pixels an inch as 16.16, unit to show 16, unit of the width 16; then the same for the height.
Resolution ofResources(const QByteArray& resources) {
    if (resources.isEmpty())
        return {};
    const QByteArray data = ResourceBlocks(resources).data(resolutionResource);
    const ByteReader reader(data, ByteOrder::Big);
    return {reader.dword(0).value_or(0) / 65536.0, reader.dword(8).value_or(0) / 65536.0};
}

bool makesSense(const Resolution& resolution) {
    return resolution.horizontal >= 1 && resolution.vertical >= 1 && resolution.horizontal <= largest &&
           resolution.vertical <= largest;
}

} // namespace

Resolution resolutionOf(const EmbeddedMetadata& metadata) {
    for (const Resolution& each :
         {ofExif(metadata.exif), metadata.resolution, ofResources(metadata.resources)})
        if (makesSense(each))
            return each;
    return {};
}

} // namespace tarsel
