// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/MetafileHeader.h"
#include "decoder/FontShelf.h"

#include <QImage>

namespace tarsel::decoder {

/// Draws a Windows metafile over the image, which starts transparent. Records that make no sense are left
/// out; false when there is none that does.
bool playWmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
             QImage& image);

/// The same of an enhanced metafile. Of one with both kinds of records the EMF part is drawn.
bool playEmf(std::span<const std::uint8_t> file, const MetafileHeader& header, const FontShelf& fonts,
             QImage& image);

} // namespace tarsel::decoder
