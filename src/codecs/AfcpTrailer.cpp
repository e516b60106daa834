// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/AfcpTrailer.h"

#include "bytes/ByteReader.h"

namespace tarsel {

namespace {

constexpr std::int64_t recordSize = 12; // of the head, an entry, and the end
constexpr std::int64_t largestData = std::int64_t(64) << 20;

struct EndRecord {
    QByteArray mark;
    ByteOrder order = ByteOrder::Big;
    std::int64_t start = 0;
};

std::optional<EndRecord> endRecordOf(const QByteArray& bytes) {
    const QByteArray record = bytes.right(recordSize), mark = record.left(4);
    if (record.size() < recordSize || (mark != "AXS!" && mark != "AXS*"))
        return std::nullopt;
    const ByteOrder order = mark.endsWith('!') ? ByteOrder::Big : ByteOrder::Little;
    return EndRecord{mark, order, *ByteReader(record, order).dword(4)};
}

/// Where the data have offsets, as positions in them; nothing when one leads out of them.
std::vector<std::int64_t> offsetPlaces(const QByteArray& data, const EndRecord& end) {
    const ByteReader reader(data, end.order);
    const std::int64_t count = reader.word(6).value_or(0), last = data.size() - recordSize;
    if (!data.startsWith(end.mark) || (count + 1) * recordSize > last)
        return {};
    std::vector<std::int64_t> places{last + 4};
    for (std::int64_t i = 1; i <= count; ++i) {
        const std::int64_t place = i * recordSize + 8, offset = *reader.dword(place) - end.start;
        if (offset < 0 || offset + std::int64_t(*reader.dword(place - 4)) > last)
            return {};
        places.push_back(place);
    }
    return places;
}

QByteArray movedOffset(const QByteArray& data, std::int64_t place, ByteOrder order, std::int64_t distance) {
    return numberBytes<QByteArray>(quint32(*ByteReader(data, order).dword(place) + distance), order);
}

} // namespace

std::vector<FilePatch> movedAfcp(const PictureSource& file, std::int64_t distance) {
    const auto end = endRecordOf(file.bytes(std::max<std::int64_t>(file.size() - recordSize, 0), recordSize));
    const std::int64_t size = end ? file.size() - end->start : 0;
    std::vector<FilePatch> patches;
    if (distance == 0 || size < recordSize || size > largestData)
        return patches;
    const QByteArray data = file.bytes(end->start, size);
    for (const std::int64_t place : offsetPlaces(data, *end))
        patches.push_back({end->start + place, movedOffset(data, place, end->order, distance)});
    return patches;
}

QByteArray trailerAt(const QByteArray& trailer, std::int64_t position) {
    const auto end = endRecordOf(trailer);
    constexpr int mostMarks = 64; // each is looked at as the start
    qsizetype at = end ? trailer.indexOf(end->mark) : -1;
    for (int i = 0; at >= 0 && i < mostMarks; ++i, at = trailer.indexOf(end->mark, at + 1)) {
        QByteArray data = trailer.sliced(at);
        const std::vector<std::int64_t> places = offsetPlaces(data, *end);
        for (const std::int64_t place : places)
            data.replace(place, 4, movedOffset(data, place, end->order, position + at - end->start));
        if (!places.empty())
            return trailer.first(at) + data;
    }
    return trailer;
}

} // namespace tarsel
