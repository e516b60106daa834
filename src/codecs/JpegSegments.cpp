// SPDX-License-Identifier: GPL-3.0-or-later
#include "codecs/JpegSegments.h"

#include "embedded/ExifBlock.h"

#include <QCryptographicHash>
#include <QtEndian>
#include <algorithm>
#include <array>

namespace tarsel {

namespace {

constexpr int App1 = JPEG_APP0 + 1;
constexpr int App2 = JPEG_APP0 + 2;
constexpr int App13 = JPEG_APP0 + 13;
constexpr qsizetype LargestPayload = 65533;

// The terminating zeros belong to the signatures.
const QByteArray ExifSignature("Exif\0\0", 6);
const QByteArray XmpSignature("http://ns.adobe.com/xap/1.0/\0", 29);
const QByteArray ExtensionSignature("http://ns.adobe.com/xmp/extension/\0", 35);
const QByteArray ResourcesSignature("Photoshop 3.0\0", 14);
const QByteArray ProfileSignature("ICC_PROFILE\0", 12);

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

/// Layout behind the signature: 32 letters of digest, total size 32, offset 32, data.
Chunk extensionChunk(const QByteArray& payload) {
    const char* numbers = payload.constData() + ExtensionSignature.size() + 32;
    return {qFromBigEndian<quint32>(numbers + 4), qFromBigEndian<quint32>(numbers),
            payload.mid(ExtensionSignature.size() + 40)};
}

/// Layout behind the signature: number of the chunk from 1, count of chunks, data.
Chunk profileChunk(const QByteArray& payload) {
    const char* numbers = payload.constData() + ProfileSignature.size();
    return {quint8(numbers[0]), quint8(numbers[1]), payload.mid(ProfileSignature.size() + 2)};
}

class SegmentCollector {
public:
    void add(int marker, const QByteArray& payload) {
        if (marker == App1)
            addApp1(payload);
        else if (marker == App2 && payload.startsWith(ProfileSignature) &&
                 payload.size() > ProfileSignature.size() + 2)
            m_profile.push_back(profileChunk(payload));
        else if (marker == App13 && payload.startsWith(ResourcesSignature))
            m_blocks.resources += payload.mid(ResourcesSignature.size());
    }

    EmbeddedMetadata blocks() const {
        EmbeddedMetadata all = m_blocks;
        all.extendedXmp =
            joined(m_extension, 0, [](const Chunk& chunk) { return std::uint64_t(chunk.data.size()); });
        all.iccProfile = joined(m_profile, 1, [](const Chunk&) { return std::uint64_t(1); });
        return all;
    }

private:
    void addApp1(const QByteArray& payload) {
        if (payload.startsWith(ExifSignature))
            addExif(payload.mid(ExifSignature.size()));
        else if (payload.startsWith(XmpSignature) && m_blocks.xmp.isEmpty())
            m_blocks.xmp = payload.mid(XmpSignature.size());
        else if (payload.startsWith(ExtensionSignature) && payload.size() >= ExtensionSignature.size() + 40)
            m_extension.push_back(extensionChunk(payload));
    }

    /// A block that is longer than one segment goes on in the next one. A second block of its own doesn't
    /// count.
    void addExif(const QByteArray& part) {
        const bool begins = part.startsWith("II*") || part.startsWith(QByteArray("MM\0*", 4));
        if (m_blocks.exif.isEmpty() || (!begins && m_exifGoesOn))
            m_blocks.exif += part;
        m_exifGoesOn = part.size() + ExifSignature.size() == LargestPayload;
    }

    EmbeddedMetadata m_blocks;
    bool m_exifGoesOn = false;
    std::vector<Chunk> m_extension;
    std::vector<Chunk> m_profile;
};

void appendSplit(std::vector<JpegSegment>& segments, int marker, const QByteArray& signature,
                 const QByteArray& block) {
    const qsizetype room = LargestPayload - signature.size();
    for (qsizetype at = 0; at < block.size(); at += room)
        segments.push_back({marker, signature + block.mid(at, room)});
}

QByteArray digestOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Md5).toHex().toUpper();
}

QByteArray bigEndian(quint32 number) {
    QByteArray bytes(4, Qt::Uninitialized);
    qToBigEndian(number, bytes.data());
    return bytes;
}

void appendExtension(std::vector<JpegSegment>& segments, const QByteArray& extension) {
    const QByteArray head = ExtensionSignature + digestOf(extension) + bigEndian(quint32(extension.size()));
    const qsizetype room = LargestPayload - head.size() - 4;
    for (qsizetype at = 0; at < extension.size(); at += room)
        segments.push_back({App1, head + bigEndian(quint32(at)) + extension.mid(at, room)});
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
    if (metadata.xmp.size() + XmpSignature.size() <= LargestPayload) {
        segments.push_back({App1, XmpSignature + metadata.xmp});
        return appendExtension(segments, metadata.extendedXmp);
    }
    // A packet from a format without that limit moves into the extension as a whole.
    segments.push_back({App1, XmpSignature + packetReferringTo(metadata.xmp)});
    appendExtension(segments, metadata.xmp);
}

void appendResources(std::vector<JpegSegment>& segments, const QByteArray& resources) {
    appendSplit(segments, App13, ResourcesSignature, resources);
}

void appendProfile(std::vector<JpegSegment>& segments, const QByteArray& profile) {
    const qsizetype room = LargestPayload - ProfileSignature.size() - 2;
    const qsizetype count = (profile.size() + room - 1) / room;
    if (count > 255)
        return;
    for (qsizetype i = 0; i < count; ++i)
        segments.push_back(
            {App2, ProfileSignature + char(i + 1) + char(count) + profile.mid(i * room, room)});
}

} // namespace

void keepMetadataSegments(jpeg_decompress_struct& jpeg) {
    for (const int marker : {App1, App2, App13})
        jpeg_save_markers(&jpeg, marker, 0xFFFF);
}

EmbeddedMetadata metadataOfSegments(const jpeg_decompress_struct& jpeg) {
    SegmentCollector collector;
    for (auto segment = jpeg.marker_list; segment; segment = segment->next)
        collector.add(segment->marker, QByteArray::fromRawData(reinterpret_cast<const char*>(segment->data),
                                                               qsizetype(segment->data_length)));
    return collector.blocks();
}

std::vector<JpegSegment> segmentsOf(const EmbeddedMetadata& metadata) {
    std::vector<JpegSegment> segments;
    // A thumbnail isn't worth a second segment, which few programs read.
    const QByteArray exif = exifWithin(metadata.exif, largestJpegExif).value_or(metadata.exif);
    appendSplit(segments, App1, ExifSignature, exif);
    appendXmp(segments, metadata);
    appendResources(segments, metadata.resources);
    appendProfile(segments, metadata.iccProfile);
    return segments;
}

} // namespace tarsel
