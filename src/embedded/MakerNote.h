// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <cstdint>

namespace tarsel {

constexpr std::uint16_t makerNoteTag = 0x927C;

/// A maker note that goes from one offset in its EXIF block or TIFF file to another. Several makers count the
/// offsets in their notes from the start of the block or file: these move along. The note as it is when its
/// offsets are not of that kind, or its format isn't known. Notes have a byte order of their own.
QByteArray movedMakerNote(const QByteArray& note, std::int64_t from, std::int64_t to);

} // namespace tarsel
