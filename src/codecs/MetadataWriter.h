// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/FileStamp.h"
#include "codecs/FilePieces.h"
#include "embedded/EmbeddedMetadata.h"
#include "embedded/ResourceBlocks.h"

#include <QString>
#include <optional>

namespace tarsel {

/// IPTC data from record 1 onward, without a resource block around them, and the digest of those with which
/// the XMP packet agrees; empty for none.
struct IptcChange {
    QByteArray data;
    QByteArray digest;
    bool operator==(const IptcChange&) const = default;

    static IptcChange in(const ResourceBlocks& resources);
    void putInto(ResourceBlocks& resources) const;
};

/// What an edit changes in the metadata of a file. What is left out stays as it is, byte for byte.
struct MetadataChange {
    std::optional<QByteArray> exif; ///< empty: none any more
    std::optional<IptcChange> iptc;
    std::optional<QByteArray> xmp;
    bool dropsCameraSegments = false;

    bool isEmpty() const { return !exif && !iptc && !xmp && !dropsCameraSegments; }
};

MetadataChange changeBetween(const EmbeddedMetadata& present, const EmbeddedMetadata& wanted);

/// Puts the metadata into an existing picture file, of which nothing else changes: pixels, other pages,
/// layers and unknown parts keep their bytes. A change within one page of memory is written in place, a
/// larger one makes a new file through the safe writer; a failure leaves the file as it was. `page` counts
/// from 1.
///
/// Errors: those of reading and writing a file; 5 for a format whose metadata can't be changed, for a file
/// that was changed by another program meanwhile, and for metadata that would not read as wanted.
/// `known` is the file's stamp from before `wanted` was made of it. The caller holds an EditLock from then
/// on.
void saveMetadata(const QString& path, int page, const EmbeddedMetadata& wanted,
                  const std::optional<FileStamp>& known = {});

/// The bytes of the file that saveMetadata() would make of it. The same errors.
QByteArray bytesWithMetadata(const QString& path, int page, const EmbeddedMetadata& wanted);

} // namespace tarsel
