// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <vector>

namespace tarsel {

/// One application segment of a JPEG file.
struct JpegSegment {
    int marker = 0;
    QByteArray payload; ///< at most 65533 bytes, signature included
    bool operator==(const JpegSegment&) const = default;
};

/// Pixels an inch; 0 where a file doesn't say.
struct Resolution {
    double horizontal = 0;
    double vertical = 0;
    bool operator==(const Resolution&) const = default;
};

/// The metadata blocks of one picture, as bytes. Codecs take them out of a file and put them into one; only
/// MetadataStore looks inside. A block that the file does not have is empty.
struct EmbeddedMetadata {
    QByteArray exif;        ///< TIFF structure: "II*\0" or "MM\0*" onward, without the "Exif\0\0" in front
    QByteArray resources;   ///< image resource blocks ("8BIM" records), in which 0x0404 holds the IPTC data
    QByteArray xmp;         ///< the XMP packet
    QByteArray extendedXmp; ///< what the packet refers to as its extension, where a format has such a thing
    QByteArray iccProfile;  ///< of the pixels as they are after decoding
    QByteArrayList comments = {};                 ///< comment segments of a JPEG file, in any character set
    std::vector<JpegSegment> cameraSegments = {}; ///< facts about the shot in a format of the camera's maker

    QByteArray trailer = {}; ///< what programs put after the end of a JPEG picture
    /// Attributes of a TIFF file that say how it stores its pixels, as a block like `exif`. They are shown
    /// and never written; this, the trailer and the resolution don't count for isEmpty.
    QByteArray storage = {};
    Resolution resolution = {}; ///< as a format says it outside of these blocks

    bool operator==(const EmbeddedMetadata&) const = default;
    bool isEmpty() const {
        return exif.isEmpty() && resources.isEmpty() && xmp.isEmpty() && iccProfile.isEmpty() &&
               comments.isEmpty() && cameraSegments.empty();
    }
};

} // namespace tarsel
