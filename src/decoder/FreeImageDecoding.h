// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "codecs/DecoderProtocol.h"

#include <cstdint>
#include <span>

namespace tarsel::decoder {

/// Decodes one file. `pixels` receives the descriptor of the rows when the reply holds a picture.
DecoderReply decode(DecoderFormat format, std::span<const std::uint8_t> file, Descriptor& pixels);

} // namespace tarsel::decoder
