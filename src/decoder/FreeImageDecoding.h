// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecoderProtocol.h"

#include <cstdint>
#include <span>

namespace tarsel::decoder {

/// Decodes one file into `pixels`, where the request's size has four bytes for each pixel.
DecoderReply decode(const DecoderRequest& request, std::span<const std::uint8_t> file, std::uint8_t* pixels);

/// Decodes a picture of one pixel in each format, so that the libraries set up now what they keep for later.
void prepareLibraries();

} // namespace tarsel::decoder
