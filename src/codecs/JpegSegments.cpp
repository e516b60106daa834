// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegSegments.h"

#include "bytes/ByteReader.h"
#include "embedded/ExifBlock.h"

#include <QCryptographicHash>
#include <algorithm>
#include <array>
#include <iterator>

namespace tarsel {

namespace {

constexpr int app1 = JPEG_APP0 + 1;
constexpr int app2 = JPEG_APP0 + 2;
constexpr int app13 = JPEG_APP0 + 13;
constexpr std::uint8_t endOfImage = 0xD9;
constexpr std::uint8_t startOfScan = 0xDA;

// The terminating zeros are part of the signatures.
const QByteArray exifSignature("Exif\0\0", 6);
const QByteArray xmpSignature("http://ns.adobe.com/xap/1.0/\0", 29);
const QByteArray extensionSignature("http://ns.adobe.com/xmp/extension/\0", 35);
const QByteArray resourcesSignature("Photoshop 3.0\0", 14);
const QByteArray profileSignature("ICC_PROFILE\0", 12);
const QByteArray webExportSignature("Ducky");

/// Some writers leave out the zero of the XMP signature, its version or its last slash.
const QByteArray xmpSignatureStart("http://ns.adobe.com/xap/");

/// Segments of camera makers and programs that describe the shot. Those not listed hold offsets, sizes or
/// other pictures, which would be wrong in a new file.
struct CameraSegment {
    int marker;
    QByteArrayView signature;
};
constexpr std::array cameraSegmentKinds = {
    CameraSegment{JPEG_APP0, "HEAPJPGM"},           // early Canon
    CameraSegment{JPEG_APP0 + 3, "Meta"},           // Kodak
    CameraSegment{JPEG_APP0 + 5, "RMETA"},          // Ricoh
    CameraSegment{JPEG_APP0 + 6, "EPPIM"},          // Toshiba
    CameraSegment{JPEG_APP0 + 6, "GoPro"},          // GoPro
    CameraSegment{JPEG_APP0 + 7, "Qualcomm"},       // cameras of telephones
    CameraSegment{JPEG_APP0 + 9, "Media Jukebox"},  // description in XML
    CameraSegment{JPEG_APP0 + 10, "UNICODE"},       // comment in UTF-16
    CameraSegment{JPEG_APP0 + 12, "[picture info]"} // Olympus, Agfa and others
};

/// The comment and the copyright of an export for the web; the quality of the old file is left out. Layout
/// after the signature: for each value its number, where 0 ends them, its size and its bytes.
QByteArray webExportTexts(const QByteArray& payload) {
    constexpr int quality = 1, headSize = 4;
    const ByteReader reader(payload, ByteOrder::Big);
    QByteArray texts;
    for (qsizetype at = webExportSignature.size(); reader.word(at).value_or(0) != 0;) {
        const qsizetype size = headSize + reader.word(at + 2).value_or(0xFFFF);
        if (at + size > payload.size())
            break;
        if (reader.word(at) != quality)
            texts += payload.mid(at, size);
        at += size;
    }
    return texts;
}

bool isWebExport(int marker, const QByteArray& payload) {
    return marker == JPEG_APP0 + 12 && payload.startsWith(webExportSignature);
}

bool isCameraSegment(int marker, const QByteArray& payload) {
    return std::ranges::any_of(cameraSegmentKinds, [&](const CameraSegment& known) {
        return known.marker == marker && payload.left(64).contains(known.signature);
    });
}

/// "CREATOR: gd-jpeg v1.0 (using IJG JPEG v62), quality = 90" is about the old file's coding.
bool describesCoding(const QByteArray& comment) {
    return comment.startsWith("CREATOR:") && comment.contains("quality");
}

bool startsTiffStructure(QByteArrayView bytes) {
    return bytes.startsWith("II*") || bytes.startsWith(QByteArrayView("MM\0*", 4));
}

/// A part of a longer block: XMP extensions are placed by offset, profile chunks by number.
struct Chunk {
    quint32 place = 0;
    quint32 total = 0;
    QByteArray data;
};

/// All chunks joined; nothing when one is missing or given twice. `sizeOf` is how far one chunk moves on.
template <class SizeOf>
QByteArray joined(std::vector<Chunk> chunks, quint32 first, SizeOf sizeOf) {
    if (chunks.empty())
        return {};
    std::stable_sort(chunks.begin(), chunks.end(),
                     [](const Chunk& a, const Chunk& b) { return a.place < b.place; });
    QByteArray bytes;
    std::uint64_t expected = first;
    for (const Chunk& chunk : chunks) {
        if (chunk.place != expected || chunk.total != chunks.front().total)
            return {};
        expected += sizeOf(chunk);
        bytes += chunk.data;
    }
    return expected == std::uint64_t(chunks.front().total) + first ? bytes : QByteArray();
}

/// Layout after the signature: 32 letters of digest, total size 32, offset 32, data.
Chunk extensionChunk(const QByteArray& payload) {
    const char* numbers = payload.constData() + extensionSignature.size() + 32;
    return {loadNumber<quint32>(numbers + 4, ByteOrder::Big), loadNumber<quint32>(numbers, ByteOrder::Big),
            payload.mid(extensionSignature.size() + 40)};
}

/// Layout after the signature: number of the chunk from 1, count of chunks, data.
Chunk profileChunk(const QByteArray& payload) {
    const char* numbers = payload.constData() + profileSignature.size();
    return {quint8(numbers[0]), quint8(numbers[1]), payload.mid(profileSignature.size() + 2)};
}

class SegmentCollector {
public:
    void add(int marker, const QByteArray& payload) {
        switch (segmentKind(marker, payload)) {
        case SegmentKind::Exif:
            addExif(payload.mid(exifSignature.size()), true);
            break;
        case SegmentKind::ExifContinued:
            addExif(payload.mid(exifSignature.size()), m_exifBlocks == 0);
            break;
        case SegmentKind::Xmp:
            if (m_blocks.xmp.isEmpty())
                m_blocks.xmp = detached(xmpPacket(payload));
            break;
        case SegmentKind::XmpExtension:
            m_extension.push_back(extensionChunk(payload));
            break;
        case SegmentKind::Profile:
            m_profile.push_back(profileChunk(payload));
            break;
        case SegmentKind::Resources:
            m_blocks.resources += resourcesIn(payload);
            break;
        case SegmentKind::Comment:
            m_blocks.comments.append(detached(payload));
            break;
        case SegmentKind::Camera:
            m_blocks.cameraSegments.push_back({marker, carried(marker, payload)});
            break;
        case SegmentKind::Other:
            break;
        }
    }

    EmbeddedMetadata blocks() const {
        EmbeddedMetadata all = m_blocks;
        all.extendedXmp =
            joined(m_extension, 0, [](const Chunk& chunk) { return std::uint64_t(chunk.data.size()); });
        all.iccProfile = joined(m_profile, 1, [](const Chunk&) { return std::uint64_t(1); });
        return all;
    }

private:
    /// Only the first block is used.
    void addExif(const QByteArray& part, bool starts) {
        m_exifBlocks += starts ? 1 : 0;
        if (m_exifBlocks == 1)
            m_blocks.exif += part;
    }

    static QByteArray carried(int marker, const QByteArray& payload) {
        if (!isWebExport(marker, payload))
            return detached(payload);
        return webExportSignature + webExportTexts(payload) + QByteArray(2, '\0');
    }

    /// Payloads are views of libjpeg's memory, which the blocks outlive.
    static QByteArray detached(QByteArrayView view) { return view.toByteArray(); }

    EmbeddedMetadata m_blocks;
    int m_exifBlocks = 0;
    std::vector<Chunk> m_extension;
    std::vector<Chunk> m_profile;
};

void appendSplit(std::vector<JpegSegment>& segments, int marker, const QByteArray& signature,
                 const QByteArray& block) {
    const qsizetype room = largestSegmentPayload - signature.size();
    for (qsizetype at = 0; at < block.size(); at += room)
        segments.push_back({marker, signature + block.mid(at, room)});
}

QByteArray digestOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toUpper();
}

void appendExtension(std::vector<JpegSegment>& segments, const QByteArray& extension) {
    const QByteArray head = extensionSignature + digestOf(extension) +
                            numberBytes<QByteArray>(quint32(extension.size()), ByteOrder::Big);
    const qsizetype room = largestSegmentPayload - head.size() - 4;
    for (qsizetype at = 0; at < extension.size(); at += room)
        segments.push_back(
            {app1, head + numberBytes<QByteArray>(quint32(at), ByteOrder::Big) + extension.mid(at, room)});
}

/// A packet that does nothing but refer to its extension.
QByteArray packetReferringTo(const QByteArray& extension) {
    return "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
           "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\"><rdf:Description rdf:about=\"\" "
           "xmlns:xmpNote=\"http://ns.adobe.com/xmp/note/\" xmpNote:HasExtendedXMP=\"" +
           digestOf(extension) + "\"/></rdf:RDF></x:xmpmeta>";
}

void appendXmp(std::vector<JpegSegment>& segments, const EmbeddedMetadata& metadata) {
    if (metadata.xmp.isEmpty())
        return;
    if (metadata.xmp.size() + xmpSignature.size() <= largestSegmentPayload) {
        segments.push_back({app1, xmpSignature + metadata.xmp});
        return appendExtension(segments, metadata.extendedXmp);
    }
    // A packet from a format without that limit moves into the extension.
    segments.push_back({app1, xmpSignature + packetReferringTo(metadata.xmp)});
    appendExtension(segments, metadata.xmp);
}

void appendResources(std::vector<JpegSegment>& segments, const QByteArray& resources) {
    appendSplit(segments, app13, resourcesSignature, resources);
}

void appendProfile(std::vector<JpegSegment>& segments, const QByteArray& profile) {
    const qsizetype room = largestSegmentPayload - profileSignature.size() - 2;
    const qsizetype count = (profile.size() + room - 1) / room;
    if (count > 255)
        return;
    for (qsizetype i = 0; i < count; ++i)
        segments.push_back(
            {app2, profileSignature + char(i + 1) + char(count) + profile.mid(i * room, room)});
}

} // namespace

bool hasMoreSegmentsThan(int most, const QByteArray& jpeg) {
    const ByteReader reader(jpeg, ByteOrder::Big);
    std::int64_t at = 2; // after the start marker
    for (int count = 0; count <= most; ++count) {
        while (at < reader.size() && (reader.byte(at) != 0xFF || reader.byte(at + 1).value_or(0xFF) == 0xFF))
            ++at; // fill bytes, and whatever the decoder would skip too
        const auto marker = reader.byte(at + 1);
        const auto length = reader.word(at + 2);
        if (!marker || !length || *marker == startOfScan || *marker == endOfImage)
            return false;
        const bool hasLength = *marker > 0x01 && (*marker < 0xD0 || *marker > endOfImage);
        at += 2 + (hasLength ? *length : 0);
    }
    return true;
}

QByteArray xmpPacket(const QByteArray& payload) {
    for (const char* start : {"<?xpacket", "<x:xmpmeta", "<x:xapmeta"})
        if (payload.startsWith(start))
            return payload;
    if (!payload.startsWith(xmpSignatureStart))
        return {};
    const auto isEnd = [](char letter) { return letter == '\0' || letter == '<'; };
    const auto end = std::find_if(payload.begin() + xmpSignatureStart.size(), payload.end(), isEnd);
    return payload.mid(end - payload.begin() + (end != payload.end() && *end == '\0' ? 1 : 0));
}

SegmentKind segmentKind(int marker, const QByteArray& payload) {
    if (marker == app1 && payload.startsWith(exifSignature))
        return startsTiffStructure(QByteArrayView(payload).sliced(exifSignature.size()))
                   ? SegmentKind::Exif
                   : SegmentKind::ExifContinued;
    if (marker == app1 && payload.startsWith(extensionSignature) &&
        payload.size() >= extensionSignature.size() + 40)
        return SegmentKind::XmpExtension;
    if (marker == app1)
        return xmpPacket(payload).isEmpty() ? SegmentKind::Other : SegmentKind::Xmp;
    if (marker == app2 && payload.startsWith(profileSignature) &&
        payload.size() > profileSignature.size() + 2)
        return SegmentKind::Profile;
    if (marker == app13 && payload.startsWith(resourcesSignature))
        return SegmentKind::Resources;
    if (marker == JPEG_COM && !payload.isEmpty() && !describesCoding(payload))
        return SegmentKind::Comment;
    if (isWebExport(marker, payload))
        return webExportTexts(payload).isEmpty() ? SegmentKind::Other : SegmentKind::Camera;
    return isCameraSegment(marker, payload) ? SegmentKind::Camera : SegmentKind::Other;
}

QByteArray resourcesIn(const QByteArray& payload) {
    return payload.mid(resourcesSignature.size());
}

void keepMetadataSegments(jpeg_decompress_struct& jpeg) {
    for (const int marker : {app1, app2, app13, JPEG_COM})
        jpeg_save_markers(&jpeg, marker, 0xFFFF);
    for (const CameraSegment& known : cameraSegmentKinds)
        jpeg_save_markers(&jpeg, known.marker, 0xFFFF);
}

EmbeddedMetadata metadataOfSegments(const jpeg_decompress_struct& jpeg) {
    SegmentCollector collector;
    for (auto segment = jpeg.marker_list; segment; segment = segment->next)
        collector.add(segment->marker, QByteArray::fromRawData(reinterpret_cast<const char*>(segment->data),
                                                               qsizetype(segment->data_length)));
    return collector.blocks();
}

bool hasPictureList(const jpeg_decompress_struct& jpeg) {
    const QByteArrayView signature("MPF\0", 4);
    for (jpeg_saved_marker_ptr marker = jpeg.marker_list; marker; marker = marker->next)
        if (marker->marker == app2 &&
            QByteArrayView(marker->data, qsizetype(marker->data_length)).startsWith(signature))
            return true;
    return false;
}

std::vector<JpegSegment> segmentsOf(const EmbeddedMetadata& metadata) {
    std::vector<JpegSegment> segments;
    // A thumbnail isn't worth a second segment, which few programs read.
    const QByteArray exif = exifWithin(metadata.exif, largestJpegExif).value_or(metadata.exif);
    appendSplit(segments, app1, exifSignature, exif);
    appendXmp(segments, metadata);
    appendResources(segments, metadata.resources);
    appendProfile(segments, metadata.iccProfile);
    std::ranges::copy(metadata.cameraSegments, std::back_inserter(segments));
    for (const QByteArray& comment : metadata.comments)
        appendSplit(segments, JPEG_COM, {}, comment);
    return segments;
}

} // namespace tarsel
