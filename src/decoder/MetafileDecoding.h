// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecoderProtocol.h"

#include <cstdint>
#include <span>

namespace tarsel::decoder {

/// Draws a metafile at the size of the request into `pixels`, which has four bytes for each.
DecoderReply decode(const DecoderRequest& request, std::span<const std::uint8_t> file, std::uint8_t* pixels);

/// Loads the fonts of the system and finds out limits, while files may be opened.
void prepareLibraries();

} // namespace tarsel::decoder
