// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegMetadata.h"

#include "codecs/AfcpTrailer.h"
#include "codecs/CodecChecks.h"
#include "codecs/JpegSegments.h"
#include "embedded/CanonPreview.h"
#include "embedded/ResourceBlocks.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>
#include <set>

namespace tarsel {

namespace {

constexpr int endOfImage = 0xD9, startOfScan = 0xDA;
constexpr int fill = 0xFF;
const QByteArray pictureListSignature("MPF\0", 4);

struct PlacedSegment {
    int marker = 0;
    std::int64_t start = 0;    ///< where the segment before ends
    std::int64_t position = 0; ///< of the payload
    std::int64_t end = 0;
    QByteArray payload;
    SegmentKind kind = SegmentKind::Other;
};

bool hasLength(int marker) {
    return marker > 0x01 && (marker < 0xD0 || marker > endOfImage);
}

/// The segments before the first scan. What is between segments belongs to the one that follows, as it does
/// for the decoder.
struct SegmentList {
    std::vector<PlacedSegment> segments;
    std::int64_t scan = -1; ///< position of the first scan's marker; -1 when the bytes end before it
    std::int64_t end = 0;   ///< of the last complete segment
};

SegmentList segmentsIn(const QByteArray& bytes) {
    const ByteReader reader(bytes, ByteOrder::Big);
    SegmentList list;
    std::int64_t at = 2;
    list.end = at;
    for (;;) {
        while (at < reader.size() && (reader.byte(at) != fill || reader.byte(at + 1).value_or(fill) == fill))
            ++at;
        const auto marker = reader.byte(at + 1);
        if (marker == startOfScan)
            list.scan = at;
        if (!marker || marker == startOfScan || marker == endOfImage)
            return list;
        if (!hasLength(*marker)) {
            at += 2;
            continue;
        }
        const auto length = reader.word(at + 2);
        if (!length || *length < 2 || at + 2 + *length > reader.size())
            return list;
        PlacedSegment segment{*marker, list.end, at + 4, at + 2 + *length, {}};
        segment.payload = bytes.mid(segment.position, segment.end - segment.position);
        segment.kind = segmentKind(*marker, segment.payload);
        at = list.end = segment.end;
        list.segments.push_back(std::move(segment));
    }
}

QByteArray segmentBytes(const JpegSegment& segment) {
    return QByteArray(1, char(fill)) + char(segment.marker) +
           numberBytes<QByteArray>(quint16(segment.payload.size() + 2), ByteOrder::Big) + segment.payload;
}

QByteArray bytesOf(const EmbeddedMetadata& blocks) {
    QByteArray bytes;
    for (const JpegSegment& segment : segmentsOf(blocks))
        bytes += segmentBytes(segment);
    return bytes;
}

/// All image resources of the file, with other IPTC data.
QByteArray resourcesWith(const std::vector<PlacedSegment>& segments, const IptcChange& iptc) {
    QByteArray bytes;
    for (const PlacedSegment& segment : segments)
        if (segment.kind == SegmentKind::Resources)
            bytes += resourcesIn(segment.payload);
    ResourceBlocks resources(bytes);
    iptc.putInto(resources);
    return resources.bytes();
}

/// Adds `distance` to the offsets of further pictures, which count from the list's own TIFF structure. The
/// first picture's is 0. Layout of an entry of tag 0xB002: attributes 32, size 32, offset 32, two numbers 16.
QByteArray movedPictureList(const QByteArray& payload, std::int64_t distance) {
    constexpr std::uint16_t pictures = 0xB002;
    constexpr std::int64_t entrySize = 16, offsetPlace = 8;
    const qsizetype base = pictureListSignature.size();
    const QByteArray structure = payload.mid(base);
    QByteArray moved = payload;
    auto walker = TiffWalker::open(PictureSource(structure).byteSource());
    const auto place = walker ? walker->visit(walker->firstDirectory()) : std::nullopt;
    if (!place)
        return moved;
    const ByteReader reader(structure, walker->order());
    for (const TiffEntry& entry : walker->entries(*place, place->entries)) {
        if (entry.tag != pictures || !entry.hasValue)
            continue;
        for (std::int64_t at = offsetPlace; at + 4 <= entry.valueSize; at += entrySize) {
            const std::uint32_t offset = reader.dword(entry.valuePosition + at).value_or(0);
            if (offset != 0)
                moved.replace(base + entry.valuePosition + at, 4,
                              numberBytes<QByteArray>(quint32(offset + distance), walker->order()));
        }
    }
    return moved;
}

/// What becomes of the segments: by index, the bytes that stand in the place of one; the last index is the
/// place before the scan.
class SegmentEdit {
public:
    SegmentEdit(const SegmentList& list, const MetadataChange& change, const PictureSource& source) :
        m_segments(list.segments) {
        if (change.exif)
            replaceExif(*change.exif);
        if (change.xmp)
            replaceXmp(*change.xmp);
        if (change.iptc) {
            EmbeddedMetadata blocks;
            blocks.resources = resourcesWith(m_segments, *change.iptc);
            replace({SegmentKind::Resources}, bytesOf(blocks),
                    afterStart({SegmentKind::Exif, SegmentKind::ExifContinued, SegmentKind::Xmp,
                                SegmentKind::XmpExtension}));
        }
        if (change.dropsCameraSegments)
            replace({SegmentKind::Camera}, {}, 0);
        movePictureLists();
        moveCanonPreview(source, list.scan);
        std::ranges::move(movedAfcp(source, growthAfter({})), std::back_inserter(m_patches));
        std::ranges::sort(m_patches, {}, &FilePatch::at);
    }

    /// The segments as they are now, of which those that stay are copied.
    FilePieces pieces(std::int64_t fileSize) const {
        FilePieces content;
        content.copy(0, 2);
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            insertAt(content, i);
            if (!isReplaced(i))
                copyPatched(content, m_segments[i].start, m_segments[i].end);
        }
        insertAt(content, m_segments.size());
        copyPatched(content, m_segments.empty() ? 2 : m_segments.back().end, fileSize);
        return content;
    }

private:
    using Kinds = std::initializer_list<SegmentKind>;

    bool isReplaced(std::size_t index) const { return m_dropped.contains(index); }

    void insertAt(FilePieces& content, std::size_t index) const {
        const auto [first, last] = m_inserted.equal_range(index);
        for (auto inserted = first; inserted != last; ++inserted)
            content.insert(inserted->second);
    }

    void copyPatched(FilePieces& content, std::int64_t from, std::int64_t end) const {
        for (const FilePatch& patch : m_patches) {
            if (patch.at < from || patch.at + patch.bytes.size() > end)
                continue;
            content.copy(from, patch.at - from);
            content.insert(patch.bytes);
            from = patch.at + patch.bytes.size();
        }
        content.copy(from, end - from);
    }

    /// The index after the segments that a file begins with: JFIF, and those of these kinds.
    std::size_t afterStart(Kinds kinds) const {
        std::size_t index = 0;
        while (index < m_segments.size() &&
               (m_segments[index].marker == JPEG_APP0 || std::ranges::count(kinds, m_segments[index].kind)))
            ++index;
        return index;
    }

    void replace(Kinds kinds, const QByteArray& bytes, std::size_t placeOfNew) {
        std::optional<std::size_t> place;
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            if (!std::ranges::count(kinds, m_segments[i].kind))
                continue;
            m_dropped.insert(i);
            place = place.value_or(i);
        }
        m_inserted.emplace(place.value_or(placeOfNew), bytes);
    }

    /// The first block is the one that counts. A further one stays with it, and goes when there is to be
    /// none.
    void replaceExif(const QByteArray& exif) {
        EmbeddedMetadata blocks;
        blocks.exif = exif;
        std::optional<std::size_t> place;
        bool isFirst = true;
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            const bool starts = m_segments[i].kind == SegmentKind::Exif;
            if (!starts && m_segments[i].kind != SegmentKind::ExifContinued)
                continue;
            isFirst = isFirst && !(starts && place);
            if (isFirst || exif.isEmpty())
                m_dropped.insert(i);
            place = place.value_or(i);
        }
        m_inserted.emplace(place.value_or(afterStart({})), bytesOf(blocks));
    }

    /// The first packet counts; its segment keeps whatever header it has.
    void replaceXmp(const QByteArray& xmp) {
        const auto first = std::ranges::find(m_segments, SegmentKind::Xmp, &PlacedSegment::kind);
        EmbeddedMetadata blocks;
        blocks.xmp = xmp;
        QByteArray bytes = bytesOf(blocks);
        if (first != m_segments.end()) {
            m_dropped.insert(std::size_t(first - m_segments.begin()));
            const QByteArray header = first->payload.chopped(xmpPacket(first->payload).size());
            if (!xmp.isEmpty() && header.size() + xmp.size() <= largestSegmentPayload)
                bytes = segmentBytes({first->marker, header + xmp});
        }
        m_inserted.emplace(first == m_segments.end() ? afterStart({SegmentKind::Exif})
                                                     : std::size_t(first - m_segments.begin()),
                           bytes);
    }

    /// By how much what follows a segment moves away from it, or from the start of the file.
    std::int64_t growthAfter(std::optional<std::size_t> index) const {
        std::int64_t growth = 0;
        for (std::size_t i = index ? *index + 1 : 0; i <= m_segments.size(); ++i) {
            const auto [first, last] = m_inserted.equal_range(i);
            for (auto inserted = first; inserted != last; ++inserted)
                growth += inserted->second.size();
            if (i < m_segments.size() && isReplaced(i))
                growth -= m_segments[i].end - m_segments[i].start;
        }
        return growth;
    }

    void movePictureLists() {
        std::vector<std::pair<std::size_t, QByteArray>> moved;
        for (std::size_t i = 0; i < m_segments.size(); ++i) {
            const PlacedSegment& segment = m_segments[i];
            const std::int64_t growth = growthAfter(i);
            if (growth != 0 && segment.marker == JPEG_APP0 + 2 &&
                segment.payload.startsWith(pictureListSignature))
                moved.emplace_back(i,
                                   segmentBytes({segment.marker, movedPictureList(segment.payload, growth)}));
        }
        for (auto& [index, bytes] : moved) {
            m_dropped.insert(index);
            m_inserted.emplace(index, std::move(bytes));
        }
    }

    /// Its offset counts from the EXIF block.
    void moveCanonPreview(const PictureSource& source, std::int64_t scan) {
        const auto first = std::ranges::find(m_segments, SegmentKind::Exif, &PlacedSegment::kind);
        const auto old = first == m_segments.end() ? std::nullopt : canonPreview(blockIn(first->payload));
        if (!old)
            return;
        const std::int64_t base = first->position + exifSignatureSize, preview = base + old->offset;
        if (preview < scan || source.bytes(preview, 2) != "\xFF\xD8")
            return;
        const auto index = std::size_t(first - m_segments.begin());
        const std::int64_t total = growthAfter({});
        if (!isReplaced(index)) {
            const auto offset = quint32(old->offset + growthAfter(index));
            const QByteArray block = withCanonPreviewAt(blockIn(first->payload), *old, offset);
            m_patches.push_back({base + old->place, block.mid(old->place, 4)});
            return;
        }
        const auto inserted = m_inserted.find(index);
        if (inserted == m_inserted.end())
            return;
        QByteArray& bytes = inserted->second;
        constexpr qsizetype head = 4 + exifSignatureSize;
        const std::int64_t before = total - growthAfter(index) - bytes.size() + first->end - first->start;
        const QByteArray block = bytes.mid(head);
        if (const auto now = canonPreview(block))
            bytes.replace(
                head, block.size(),
                withCanonPreviewAt(block, *now, quint32(preview + total - first->start - before - head)));
    }

    static QByteArray blockIn(const QByteArray& payload) { return payload.mid(exifSignatureSize); }

    static constexpr qsizetype exifSignatureSize = 6;

    const std::vector<PlacedSegment>& m_segments;
    std::vector<FilePatch> m_patches; ///< of what is copied
    std::set<std::size_t> m_dropped;
    std::multimap<std::size_t, QByteArray> m_inserted;
};

} // namespace

QByteArray jpegHead(const PictureSource& source) {
    constexpr std::int64_t largestSegment = 65535 + 2;
    QByteArray bytes = source.start(); // which was read to recognise the format
    for (std::int64_t asked = 1 << 20;; asked *= 8) {
        const SegmentList list = segmentsIn(bytes);
        if (list.scan >= 0)
            return bytes.left(list.scan + largestSegment);
        if (bytes.size() >= source.size() || asked > PictureSource::largestReadAtOnce)
            return bytes;
        bytes = source.bytes(0, std::min(asked, source.size()));
    }
}

FilePieces jpegWithMetadata(const PictureSource& source, const QString& name, int,
                            const MetadataChange& change) {
    const SegmentList list = segmentsIn(jpegHead(source));
    if (list.scan < 0)
        failDecoding({"JPEG", name, source.size()},
                     QCoreApplication::translate("JpegMetadata", "no picture in it"));
    return SegmentEdit(list, change, source).pieces(source.size());
}

} // namespace tarsel
