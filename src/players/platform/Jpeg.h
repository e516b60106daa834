// SPDX-License-Identifier: MIT
#pragma once

#include "players/effects/Canvas.h"

#include <optional>
#include <string_view>

namespace tarsel::players {

/// The picture, cut on the right and below to what fits `widest` and `highest`. Nothing for bytes that are no
/// JPEG file, or for one too large to decode; what is missing of a cut file is gray.
std::optional<Picture> decodeJpeg(std::string_view bytes, int widest, int highest);

} // namespace tarsel::players
