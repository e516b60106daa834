// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/CodecChecks.h"
#include "codecs/MetadataWriter.h"
#include "codecs/TiffDirectory.h"
#include "embedded/EmbeddedMetadata.h"
#include "embedded/ExifBlock.h"

#include <cstdint>

namespace tarsel {

/// The blocks of the page whose directory is at `directoryOffset`. The EXIF block is a copy of the
/// directory and of those that belong to it, without what describes the storage of pixels.
EmbeddedMetadata tiffPageMetadata(const PictureSource& source, std::uint64_t directoryOffset);

/// The file of one page with the blocks in its directory. `file` has the byte order of the EXIF block, and
/// nothing after its directory but what belongs to that.
QByteArray withTiffMetadata(const QByteArray& file, const EmbeddedMetadata& metadata);

/// Tags of the blocks that EmbeddedMetadata holds beside EXIF.
namespace TiffBlock {
constexpr std::uint16_t xmp = 700;
constexpr std::uint16_t iptc = 33723;
constexpr std::uint16_t resources = 34377;
constexpr std::uint16_t profile = 34675;
} // namespace TiffBlock

/// Puts a block in the place of one with that tag; empty bytes remove it.
void putBlock(TiffDirectory& page, std::uint16_t tag, ExifType type, const QByteArray& bytes);

/// Whether an entry says something about the picture that is as true in another file: neither about the
/// storage of pixels nor one of the blocks that EmbeddedMetadata holds beside EXIF.
bool isPictureAttribute(const TiffDirectory::Entry& entry);

/// The maker note among attributes; null for none.
TiffDirectory::Entry* makerNoteOf(TiffDirectory& attributes);

/// The file with changed metadata of the page whose directory is at `directoryOffset`. Values and directories
/// take their old places where they fit, else they go to the end, so that nothing else moves: maker notes,
/// pixels and other pages keep their bytes and places. What is given up is zeroed. A large file,
/// of BigTIFF too, is only added to. Error 0x8000FFFF for a file without BigTIFF's numbers that would grow
/// beyond 4 GB.
FilePieces tiffPageWithMetadata(const PictureSource& source, const FileUnderTest& file,
                                std::uint64_t directoryOffset, const MetadataChange& change);

/// Whether the numbers of an EXIF block begin with their high byte.
bool isBigEndianExif(const QByteArray& exif);

} // namespace tarsel
