// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/FilePieces.h"

namespace tarsel {

// AFCP data end a file, after a JPEG picture: "AXS!" (big-endian) or "AXS*", version 16, count 16, a number
// 32; for each entry a name of four letters, size 32, offset 32; the data; the mark again, the offset of the
// start 32, a number 32. Offsets count from the start of the file, so that they change when anything before
// them grows.

/// What makes the offsets right after all of the data moved by `distance`; nothing for a file without such
/// data.
std::vector<FilePatch> movedAfcp(const PictureSource& file, std::int64_t distance);

/// What followed a picture, with the offsets of AFCP data at its end as they are when it begins at `position`
/// of a file.
QByteArray trailerAt(const QByteArray& trailer, std::int64_t position);

} // namespace tarsel
