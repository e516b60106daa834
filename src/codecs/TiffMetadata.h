// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/PictureSource.h"
#include "embedded/EmbeddedMetadata.h"

#include <cstdint>

namespace tarsel {

/// The blocks of the page whose directory is at `directoryOffset`. The EXIF block is a copy of the
/// directory and of those that belong to it, without what describes the storage of pixels.
EmbeddedMetadata tiffPageMetadata(const PictureSource& source, std::uint64_t directoryOffset);

/// The file of one page with the blocks in its directory. `file` has the byte order of the EXIF block, and
/// nothing after its directory but what belongs to that.
QByteArray withTiffMetadata(const QByteArray& file, const EmbeddedMetadata& metadata);

/// Whether the numbers of an EXIF block begin with their high byte.
bool isBigEndianExif(const QByteArray& exif);

} // namespace tarsel
