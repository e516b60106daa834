// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

#include <cstdio>
#include <jpeglib.h>
#include <vector>

namespace tarsel {

/// Whether more than `most` segments come before the first scan. The decoder walks its list of kept segments
/// for each new one, so that a small file of many could keep it busy for minutes.
bool hasMoreSegmentsThan(int most, const QByteArray& jpeg);

/// What a segment holds. ExifContinued goes on with the block of the segment before it.
enum class SegmentKind { Other, Exif, ExifContinued, Xmp, XmpExtension, Profile, Resources, Comment, Camera };

SegmentKind segmentKind(int marker, const QByteArray& payload);
/// The image resources in a segment of that kind; blocks may go on in the next one.
QByteArray resourcesIn(const QByteArray& payload);

/// The XMP packet in a segment, with or without a header; empty for another kind of segment.
QByteArray xmpPacket(const QByteArray& payload);

constexpr qsizetype largestSegmentPayload = 65533;

/// Makes the decoder keep the segments that hold metadata. Call before jpeg_read_header.
void keepMetadataSegments(jpeg_decompress_struct& jpeg);

/// The metadata in the segments kept: EXIF and XMP from APP1, image resources from all APP13 together, the
/// profile from the numbered chunks of APP2, comments, and the makers' segments that describe the shot. A set
/// of chunks with a missing part is ignored. docs/manual/metadata.md lists what is carried and what is left
/// out.
EmbeddedMetadata metadataOfSegments(const jpeg_decompress_struct& jpeg);

/// Whether the file has a list of further pictures that follow the first.
bool hasPictureList(const jpeg_decompress_struct& jpeg);

/// The segments of these blocks in the order in which readers expect them: EXIF, XMP, resources, profile,
/// makers' segments, comments. What doesn't fit into one segment is split as each kind prescribes.
std::vector<JpegSegment> segmentsOf(const EmbeddedMetadata& metadata);

} // namespace tarsel
