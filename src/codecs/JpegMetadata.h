// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/MetadataWriter.h"

namespace tarsel {

/// The start of a JPEG file up to the first scan, or all of a file without one.
QByteArray jpegHead(const PictureSource& source);

/// The file with changed segments. The bytes from the first scan on stay, and so do segments of which the
/// change says nothing; a list of further pictures (MPF) keeps pointing at them. Error 0x8000FFFF for a file
/// without a scan.
FilePieces jpegWithMetadata(const PictureSource& source, const QString& name, int page,
                            const MetadataChange& change);

} // namespace tarsel
