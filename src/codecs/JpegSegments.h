// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "embedded/EmbeddedMetadata.h"

#include <cstdio>
#include <jpeglib.h>
#include <vector>

namespace tarsel {

/// Tells the decoder to keep the segments in which metadata live. Call before jpeg_read_header.
void keepMetadataSegments(jpeg_decompress_struct& jpeg);

/// The blocks out of the segments kept: EXIF from APP1 (several are joined), XMP and its extension from APP1,
/// image resources from all APP13 together, the profile from the numbered chunks of APP2. A set of chunks
/// that isn't whole gives nothing.
EmbeddedMetadata metadataOfSegments(const jpeg_decompress_struct& jpeg);

/// One application segment to be written.
struct JpegSegment {
    int marker = 0;
    QByteArray payload; ///< at most 65533 bytes, signature included
};

/// The segments of these blocks in the order in which readers expect them: EXIF, XMP, resources, profile.
/// What doesn't fit into one segment is split as each kind prescribes.
std::vector<JpegSegment> segmentsOf(const EmbeddedMetadata& metadata);

} // namespace tarsel
