// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/SaveSettings.h"
#include "embedded/EmbeddedMetadata.h"
#include "pixels/Picture.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <span>

namespace tarsel {

/// What a decoder gives: the picture and the metadata of its file.
struct DecodedPicture {
    Picture picture;
    EmbeddedMetadata metadata;
    QString damage =
        {}; ///< what is wrong with the file whose picture could be read in part; empty for a whole one
};

/// What a file says of itself in front of its pixels.
struct PictureHeader {
    int width = 0;
    int height = 0;
    int bitsPerPixel = 0; ///< all channels together, as stored
    double dpi = 0;       ///< horizontal; 0 when the file doesn't tell
};

struct PixelSize {
    int width = 0;
    int height = 0;
    bool operator==(const PixelSize&) const = default;
};

/// A picture decoded smaller than it is, and its own size.
struct ReducedPicture {
    Picture picture;
    PixelSize sourceSize;
};

/// One picture format. All functions take the whole file's bytes; `name` is the path or another word for the
/// file, for messages. They raise error 0x8000FFFF with format, file and fact when they can't make sense of
/// the bytes.
// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): one left out of a row of the table must not compile
struct Codec {
    const char* name;       ///< "JPEG"
    QStringList extensions; ///< lower case, without the point; the first is the usual one

    bool (*sniff)(const QByteArray& bytes); ///< by the file's start
    PictureHeader (*header)(const QByteArray& bytes, const QString& name);
    int (*pageCount)(const QByteArray& bytes, const QString& name);
    /// `page` counts from 1; formats without pages ignore it.
    DecodedPicture (*decode)(const QByteArray& bytes, const QString& name, int page);
    /// The encoded file; null for a format that this program doesn't write yet.
    QByteArray (*encode)(const Picture& picture, const SaveSettings& settings,
                         const EmbeddedMetadata& metadata) = nullptr;
    /// The metadata blocks without decoding, as decode gives them for the first page; null for a format
    /// without metadata.
    EmbeddedMetadata (*metadata)(const QByteArray& bytes, const QString& name) = nullptr;
    /// A picture of the same proportions that is at least as large as `wanted` in both directions (or the
    /// whole picture where it is smaller), for drawing it small; null where that isn't faster than decode.
    ReducedPicture (*decodeReduced)(const QByteArray& bytes, const QString& name, PixelSize wanted) = nullptr;
    /// True for a format without a signature: `sniff` counts only for a file with one of the extensions.
    bool needsExtension = false;
};

/// All formats, in the order in which they are asked.
std::span<const Codec> codecs();

/// Decodes by what the bytes hold. Error 0x8000FFFF when no codec recognises them.
DecodedPicture decodeByContent(const QByteArray& bytes, const QString& path, int page);

/// The codec that recognises these bytes, or null. A format without a signature (WBMP) is recognised by a
/// plausible header together with the file's extension.
const Codec* codecForContent(const QByteArray& bytes, const QString& path);

/// The codec that lists this extension (lower case), or null.
const Codec* codecForExtension(const QString& extension);

} // namespace tarsel
