// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/MetafileHeader.h"
#include "decoder/FontShelf.h"

#include <QImage>

namespace tarsel::decoder {

/// How much of a file was drawn: a part when it ends before its last record.
enum class Played { Nothing, Part, All };

/// Draws a Windows metafile over the image, which starts transparent. Records that make no sense are left
/// out.
Played playWmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
               QImage& image);

/// The same of an enhanced metafile. Of one with both kinds of records the EMF part is drawn.
Played playEmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
               QImage& image);

} // namespace tarsel::decoder
