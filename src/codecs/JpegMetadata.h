// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/MetadataWriter.h"

namespace tarsel {

/// The start of a JPEG file up to the first scan, or all of a file without one.
QByteArray jpegHead(const PictureSource& source);

/// The file with changed segments. The bytes from the first scan on stay, and so do segments of which the
/// change says nothing; a list of further pictures (MPF), AFCP data at the end, and the place of Canon's
/// preview image keep pointing where they did. Error 0x8000FFFF for a file without a scan.
FilePieces jpegWithMetadata(const PictureSource& source, const QString& name, int page,
                            const MetadataChange& change);

} // namespace tarsel
