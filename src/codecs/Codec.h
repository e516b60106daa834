// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecodedPicture.h"
#include "codecs/FilePieces.h"
#include "codecs/PictureSource.h"
#include "codecs/SaveSettings.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <span>

namespace tarsel {

struct MetadataChange;

/// One picture format. The functions read what they need of the source; `name` is the path or another word
/// for the file, for messages. They raise error 0x8000FFFF with format, file and fact when they can't make
/// sense of the bytes.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): one left out of a row of the table must not compile
struct Codec {
    const char* name;       ///< "JPEG"
    QStringList extensions; ///< lower case, without the point; the first is the usual one

    bool (*sniff)(const PictureSource& source); ///< by the start of the file
    PictureHeader (*header)(const PictureSource& source, const QString& name);
    int (*pageCount)(const PictureSource& source, const QString& name);
    /// `page` counts from 1; formats without pages ignore it.
    DecodedPicture (*decode)(const PictureSource& source, const QString& name, int page);
    /// The encoded file; null for a format that this program doesn't write yet.
    QByteArray (*encode)(const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata) = nullptr;
    /// The metadata blocks without decoding, as decode returns them for that page; null for a format without
    /// metadata.
    EmbeddedMetadata (*metadata)(const PictureSource& source, const QString& name, int page) = nullptr;
    /// The file with changed metadata and everything else as it is; null for a format in which nothing can be
    /// changed that way.
    FilePieces (*withMetadata)(const PictureSource& source, const QString& name, int page,
                               const MetadataChange& change) = nullptr;
    /// A picture of the same proportions that is at least as large as `wanted` in both directions (or the
    /// full size where it is smaller), for drawing it small; null where that isn't faster than decode.
    ReducedPicture (*decodeReduced)(const PictureSource& source, const QString& name,
                                    PixelSize wanted) = nullptr;
    /// True for a format without a signature: `sniff` counts only for a file with one of the extensions.
    bool needsExtension = false;
    /// Whether files that the encoder writes in colour hold a profile of them.
    bool holdsProfile = true;
    /// Whether files that the encoder writes keep the transparency of a picture.
    bool keepsTransparency = false;
};

/// All formats, in the order in which they are asked.
std::span<const Codec> codecs();

/// The codec that recognises the source, or null; reads only its start. A format without a signature (WBMP)
/// is recognised by a plausible header together with the file's extension.
const Codec* codecForContent(const PictureSource& source, const QString& path);

/// The codec that lists this extension (lower case), or null.
const Codec* codecForExtension(const QString& extension);

} // namespace tarsel
