// SPDX-License-Identifier: GPL-3.0-or-later
#include "embedded/MakerNote.h"

#include "bytes/ByteReader.h"
#include "bytes/TiffStructure.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace tarsel {

namespace {

/// Of notes with a directory whose offsets count from the start of the EXIF block. Others have their own
/// start, which their signature shows.
struct Format {
    QByteArrayView signature;
    std::int64_t directory; ///< where the directory begins
};
const std::array formats{
    Format{QByteArrayView("OLYMP\0", 6), 8},           Format{QByteArrayView("EPSON\0", 6), 8},
    Format{QByteArrayView("SONY CAM \0\0\0", 12), 12}, Format{QByteArrayView("SONY DSC \0\0\0", 12), 12},
    Format{QByteArrayView("Panasonic\0\0\0", 12), 12}, Format{QByteArrayView(), 0}, // such as Canon's
};

constexpr std::array<std::int64_t, 14> elementSizes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
constexpr int mostEntries = 512;

/// Where the offsets in the note's directory are; nothing when it isn't one, or when one of its values isn't
/// after the directory and inside the note.
std::optional<std::vector<std::int64_t>> offsetPlaces(const ByteReader& note, std::int64_t directory,
                                                      std::int64_t from) {
    const int count = note.word(directory).value_or(0);
    const std::int64_t end = directory + 2 + count * tiffEntrySize;
    if (count == 0 || count > mostEntries || end > note.size())
        return std::nullopt;
    std::vector<std::int64_t> places;
    for (std::int64_t at = directory + 2; at < end; at += tiffEntrySize) {
        const std::size_t type = *note.word(at + 2);
        if (type == 0 || type >= elementSizes.size())
            return std::nullopt;
        const std::int64_t size = elementSizes[type] * *note.dword(at + 4);
        if (size <= tiffInlineSize)
            continue;
        const std::int64_t value = *note.dword(at + 8) - from;
        if (value < end || size > note.size() - value)
            return std::nullopt;
        places.push_back(at + 8);
    }
    return places;
}

/// Some notes say at their end, in the form of a TIFF header, where they stood when their offsets were right.
std::optional<std::int64_t> placeAtEnd(const QByteArray& note, std::int64_t from, ByteOrder order) {
    const std::int64_t at = note.size() - tiffHeaderSize;
    const bool isHeader =
        at > 0 && (note.mid(at, 4) == QByteArray("II*\0", 4) || note.mid(at, 4) == QByteArray("MM\0*", 4));
    return isHeader && ByteReader(note, order).dword(at + 4) == from ? std::optional(at + 4) : std::nullopt;
}

} // namespace

QByteArray movedMakerNote(const QByteArray& note, std::int64_t from, std::int64_t to) {
    const auto format =
        std::ranges::find_if(formats, [&](const Format& each) { return note.startsWith(each.signature); });
    for (const ByteOrder order : {ByteOrder::Little, ByteOrder::Big}) {
        const ByteReader reader(note, order);
        std::optional<std::vector<std::int64_t>> places = offsetPlaces(reader, format->directory, from);
        if (!places)
            continue;
        if (const auto end = placeAtEnd(note, from, order))
            places->push_back(*end);
        QByteArray moved = note;
        for (const std::int64_t place : *places)
            moved.replace(place, 4,
                          numberBytes<QByteArray>(quint32(*reader.dword(place) - from + to), order));
        return moved;
    }
    return note;
}

} // namespace tarsel
