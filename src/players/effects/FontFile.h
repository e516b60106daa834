// SPDX-License-Identifier: MIT
#pragma once

namespace tarsel::players {

/// The bytes of font/DejaVuSans-players.ttf.
extern const unsigned char fontFile[];

} // namespace tarsel::players
